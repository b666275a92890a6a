// Values of the index file: whatever bytes or text there are, both ways give them back.
#include "index/wert.h"

#include <gtest/gtest.h>
#include <random>

#include "basis/ansi.h"

namespace liedwerk {
namespace {

// All strings over an alphabet up to a length.
void FürAlleFolgen(const std::vector<std::string>& Alphabet, int Länge, const std::string& Anfang,
                   const std::function<void(const std::string&)>& Prüfen) {
    Prüfen(Anfang);
    if (Länge == 0) return;
    for (const auto& Stück : Alphabet)
        FürAlleFolgen(Alphabet, Länge - 1, Anfang + Stück, Prüfen);
}

void ErwarteVerlustfrei(const std::string& Folge) {
    ASSERT_EQ(IndexwertSchreiben(IndexwertLesen(Folge)), Folge);
    ASSERT_EQ(IndexwertLesen(IndexwertSchreiben(Folge)), Folge);
}

const std::string Marke = "\xEF\xBB\xBF";

TEST(Indexwert, MarkenInJederVerschachtelungKommenZurück) {
    const std::string Einmal = AnsiNachUtf8(Marke);
    const std::string Zweimal = AnsiNachUtf8(Einmal);
    FürAlleFolgen({Marke, Einmal, Zweimal, AnsiNachUtf8(Zweimal), "\xEF", "a", "\xFF", "Ж", "\xC2"}, 5, "",
                  ErwarteVerlustfrei);
}

TEST(Indexwert, ZufälligeBytesKommenZurück) {
    std::mt19937 Zufall(1);
    for (int i = 0; i < 100000; ++i) {
        std::string Folge = i % 2 == 0 ? Marke : std::string();
        for (auto n = Zufall() % 8; n > 0; --n)
            Folge += static_cast<char>(Zufall());
        ErwarteVerlustfrei(Folge);
    }
}

TEST(Indexwert, AlteDateienStehenInWindows1252) {
    EXPECT_EQ(IndexwertLesen("M\xFCller \x80"), "Müller €");
    EXPECT_EQ(IndexwertSchreiben("Müller €"), "M\xFCller \x80");
    EXPECT_EQ(IndexwertSchreiben("/Ж"), Marke + "/Ж");
}

TEST(Indexwert, GekürztesLiestSichAlsAnfangDesTextes) {
    std::string Lang;
    for (int i = 0; i < 20; ++i)
        Lang += "aЖ€";
    for (const std::string& Text :
         {Lang, Lang.substr(0, 1) + "\xFF" + Lang, AnsiNachUtf8(Marke) + "abc\xC3\xA4"}) {
        const std::string Bytes = IndexwertSchreiben(Text);
        for (std::size_t Höchstens = Marke.size() + 1; Höchstens <= Bytes.size(); ++Höchstens) {
            const std::string Kurz = IndexwertEinpassen(Bytes, Höchstens);
            ASSERT_LE(Kurz.size(), Höchstens);
            ASSERT_TRUE(Text.starts_with(IndexwertLesen(Kurz))) << Höchstens;
        }
    }
    EXPECT_EQ(IndexwertEinpassen("a\r\nb", 10), "a  b");
}

}  // namespace
}  // namespace liedwerk
