#include "suche/wortsucher.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace liedwerk {
namespace {

constexpr std::size_t Blockbreite = 64;

// Bytes of folded titles, names and paths from the most to the least common; what is not named is rarer.
constexpr std::string_view HäufigeBytes =
    " eaion\\rtsl/hdumcg.p3k0b1y2fw-v\xC3"
    "5496789jzxq'_,&():;!";

constexpr std::array<std::uint8_t, 256> RängeBilden() {
    std::array<std::uint8_t, 256> Ränge{};
    // In another script few lead bytes of UTF-8 stand before nearly every letter; what follows them varies.
    constexpr std::size_t ErstesLeitbyte = 0xC2;
    for (std::size_t Byte = ErstesLeitbyte; Byte < Ränge.size(); ++Byte)
        Ränge[Byte] = 1;
    for (std::size_t i = 0; i < HäufigeBytes.size(); ++i) {
        Ränge[static_cast<unsigned char>(HäufigeBytes[i])] =
            static_cast<std::uint8_t>(HäufigeBytes.size() - i + 1);
    }
    return Ränge;
}
constexpr auto Häufigkeit = RängeBilden();

std::uint8_t HäufigkeitVon(char Byte) {
    return Häufigkeit[static_cast<unsigned char>(Byte)];
}

// Marks the places of a block at which the first byte stands in A and the second in B.
inline void BlockPrüfen(const char* A, const char* B, char Erstes, char Zweites, unsigned char* Marken) {
    for (std::size_t i = 0; i < Blockbreite; ++i)
        Marken[i] = static_cast<unsigned char>((A[i] == Erstes) & (B[i] == Zweites));
}

}  // namespace

Wortsucher::Wortsucher(std::string Gesucht) : Wort(std::move(Gesucht)) {
    for (std::size_t i = 1; i < Wort.size(); ++i) {
        if (HäufigkeitVon(Wort[i]) < HäufigkeitVon(Wort[ErsterAbstand])) ErsterAbstand = i;
    }
    ZweiterAbstand = ErsterAbstand == 0 && Wort.size() > 1 ? 1 : 0;
    for (std::size_t i = 0; i < Wort.size(); ++i) {
        if (i != ErsterAbstand && HäufigkeitVon(Wort[i]) < HäufigkeitVon(Wort[ZweiterAbstand]))
            ZweiterAbstand = i;
    }
}

std::size_t Wortsucher::Suchen(std::string_view Text, std::size_t Ab) const {
    const char Erstes = Wort[ErsterAbstand];
    const char Zweites = Wort[ZweiterAbstand];
    alignas(Blockbreite) std::array<unsigned char, Blockbreite> Marken;
    for (; Text.size() >= Ab + Blockbreite + Wort.size(); Ab += Blockbreite) {
        const char* const Block = Text.data() + Ab;
        BlockPrüfen(Block + ErsterAbstand, Block + ZweiterAbstand, Erstes, Zweites, Marken.data());
        std::array<std::uint64_t, Blockbreite / 8> Achter;
        std::memcpy(Achter.data(), Marken.data(), Blockbreite);
        std::uint64_t Irgendeine = 0;
        for (const std::uint64_t Acht : Achter)
            Irgendeine |= Acht;
        if (Irgendeine == 0) continue;
        for (std::size_t i = 0; i < Blockbreite; ++i) {
            if (i % 8 == 0 && Achter[i / 8] == 0) {
                i += 7;
            } else if (Marken[i] != 0 && std::memcmp(Block + i, Wort.data(), Wort.size()) == 0) {
                return Ab + i;
            }
        }
    }
    return Text.find(Wort, Ab);
}

}  // namespace liedwerk
