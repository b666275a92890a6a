// Text: code page, broken UTF-8, letter case and searching without regard to it.
#include "basis/text.h"

#include <chrono>
#include <gtest/gtest.h>

#include "basis/ansi.h"

namespace liedwerk {
namespace {

constexpr std::size_t Nirgends = std::string_view::npos;

TEST(Ansi, JedesByteÜberstehtHinUndRückweg) {
    std::string Bytes;
    for (int Byte = 0; Byte < 256; ++Byte)
        Bytes.push_back(static_cast<char>(Byte));
    const std::string Text = AnsiNachUtf8(Bytes);
    EXPECT_TRUE(IstUtf8(Text));
    EXPECT_EQ(ZeichenAnzahl(Text), 256U);
    EXPECT_EQ(Utf8NachAnsi(Text), Bytes);
    EXPECT_EQ(AnsiNachUtf8("\x80\x8D\xE4"), "€\xC2\x8Dä");
}

TEST(Ansi, FremdeUndKaputteZeichenWerdenGemeldetOderErsetzt) {
    EXPECT_EQ(Utf8NachAnsi("Łódź"), std::nullopt);
    EXPECT_EQ(Utf8NachAnsi("a\xE4"), std::nullopt);
    EXPECT_EQ(Utf8NachAnsi("\xC2\x80"), std::nullopt) << "U+0080 is no character of the code page";
    EXPECT_EQ(Utf8NachAnsiErsatz("Łódź \xE4 €"),
              "?\xF3"
              "d? ? \x80");
}

TEST(Utf8, KaputteBytesStehenFürSichUndKommenZurück) {
    // Overlong forms, surrogates, too large, cut off, lonely continuation bytes.
    for (const std::string Text :
         {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x8F\xBF\xBF",
          "\xF5\x80\x80\x80", "a\xC3", "\xE2\x82", "\xF0\x9F\x8E", "\x80\xBF", "\xFF"}) {
        EXPECT_FALSE(IstUtf8(Text));
        EXPECT_FALSE(IstUtf8("genau acht und mehr " + Text));
        std::string Zurück;
        std::size_t Zeichen = 0;
        for (std::size_t Stelle = 0; Stelle < Text.size(); ++Zeichen) {
            ZeichenAnhängen(Zurück, ZeichenLesen(Text, Stelle));
        }
        EXPECT_EQ(Zurück, Text);
        EXPECT_EQ(ZeichenAnzahl(Text), Zeichen);
        EXPECT_EQ(Zeichen, Text.size());
        EXPECT_EQ(Falten(Text), Text);
        EXPECT_EQ(RechterTeil(Text, 1), Text.substr(Text.size() - 1));
    }
    std::string Text;
    for (const char32_t Zeichen :
         {0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        Text.clear();
        ZeichenAnhängen(Text, Zeichen);
        std::size_t Stelle = 0;
        EXPECT_EQ(ZeichenLesen(Text, Stelle), Zeichen);
        EXPECT_EQ(Stelle, Text.size());
        EXPECT_TRUE(IstUtf8(Text));
    }
    Text.clear();
    ZeichenAnhängen(Text, 0xD800);
    EXPECT_EQ(Text, "\xEF\xBF\xBD") << "no writer may make invalid UTF-8";
}

TEST(Utf8, SchneidenZähltZeichenVonBeidenSeiten) {
    EXPECT_EQ(LinkerTeil("äöü€", 3), "äöü");
    EXPECT_EQ(RechterTeil("äöü€𝄞", 2), "€𝄞");
    EXPECT_EQ(RechterTeil("ä\x80", 1), "\x80") << "the broken byte is a character of its own";
    EXPECT_EQ(LinkerTeil("äö", 5), "äö");
    EXPECT_EQ(NullenVoran("ä", 3), "00ä");
    EXPECT_EQ(NullenVoran("1234", 3), "1234");
}

TEST(Schreibweise, BuchstabenDerDreiSchriften) {
    const struct {
        std::string_view Text, Gefaltet, Klein, Groß;
    } Fälle[] = {
        {"Straße ẞ", "straße ß", "straße ß", "STRAßE ẞ"},
        {"ÄÖÜäöü×÷ÿŸ", "äöüäöü×÷ÿÿ", "äöüäöü×÷ÿÿ", "ÄÖÜÄÖÜ×÷ŸŸ"},
        {"ſ \u212A \u212B \u2126 \u00B5", "s k å ω μ", "ſ k å ω \u00B5", "S \u212A \u212B \u2126 Μ"},
        {"İıIi", "İıii", "iıii", "İIII"},
        {"ǅǆǄ Ǳ", "ǆǆǆ ǳ", "ǆǆǆ ǳ", "ǄǄǄ Ǳ"},
        {"ΣΑΣςσ ΆΏ ϐϴ", "σασσσ άώ βθ", "σασςσ άώ ϐθ", "ΣΑΣΣΣ ΆΏ Βϴ"},
        {"ἈᾈᾳᾼῼὙ", "ἀᾀᾳᾳῳὑ", "ἀᾀᾳᾳῳὑ", "ἈᾈᾼᾼῼὙ"},
        {"ЁЯяѣѢ Ӏӏ Ԯ", "ёяяѣѣ ӏӏ ԯ", "ёяяѣѣ ӏӏ ԯ", "ЁЯЯѢѢ ӀӀ Ԯ"},
        {"ẠẾẽ ẛ Ⱥⱦ Ỿ", "ạếẽ ṡ ⱥⱦ ỿ", "ạếẽ ẛ ⱥⱦ ỿ", "ẠẾẼ Ṡ ȺȾ Ỿ"},
        {"@[`{ 日本 ՀԱՅ Ⓐ", "@[`{ 日本 ՀԱՅ Ⓐ", "@[`{ 日本 ՀԱՅ Ⓐ", "@[`{ 日本 ՀԱՅ Ⓐ"},
    };
    for (const auto& Fall : Fälle) {
        EXPECT_EQ(Falten(Fall.Text), Fall.Gefaltet);
        EXPECT_EQ(Kleinbuchstaben(Fall.Text), Fall.Klein);
        EXPECT_EQ(Großbuchstaben(Fall.Text), Fall.Groß);
        EXPECT_TRUE(GleichOhneGroß(Fall.Text, Fall.Gefaltet));
    }
}

TEST(Schreibweise, FaltenEinesGefaltetenÄndertNichts) {
    for (char32_t Zeichen = 0; Zeichen < 0x11000; ++Zeichen) {
        const char32_t Gefaltet = ZeichenFalten(Zeichen);
        EXPECT_EQ(ZeichenFalten(Gefaltet), Gefaltet) << std::hex << static_cast<unsigned>(Zeichen);
    }
}

// Blocks of sixteen bytes: every place of a letter and of a foreign character in and around them.
TEST(Schreibweise, BlockgrenzenVerlierenNichts) {
    for (std::size_t Länge = 0; Länge < 40; ++Länge) {
        for (std::size_t Stelle = 0; Stelle <= Länge; ++Stelle) {
            const std::string Vorn(Stelle, 'Q');
            const std::string Hinten(Länge - Stelle, 'Z');
            std::string Ziel = "ALT";
            FaltenAnhängen(Ziel, Vorn + "ȺÄ\u212A" + Hinten);
            EXPECT_EQ(Ziel, "ALT" + std::string(Stelle, 'q') + "ⱥäk" + std::string(Länge - Stelle, 'z'));
        }
    }
    EXPECT_EQ(Falten(std::string(300, 'a') + "ȺȺȺȺȺȺ").size(), 318U);
}

TEST(OhneGroß, GleichAnfangUndEndeAuchBeiAndererLänge) {
    EXPECT_TRUE(GleichOhneGroß("\u212A", "k")) << "the Kelvin sign";
    EXPECT_FALSE(GleichOhneGroß("abc", "ab"));
    EXPECT_FALSE(GleichOhneGroß("\xC3", "Ã"));
    EXPECT_TRUE(EndetMitOhneGroß("Lied.MP3", ".mp3"));
    EXPECT_TRUE(EndetMitOhneGroß("MASſ", "ss"));
    EXPECT_FALSE(EndetMitOhneGroß("s", "ss"));
    EXPECT_TRUE(BeginntMitOhneGroß("ÄRGER", "är"));
    EXPECT_TRUE(BeginntMitOhneGroß("x", ""));
    EXPECT_FALSE(EndetMitOhneGroß("ä", "\xA4")) << "half of a character";
}

TEST(OhneGroß, PositionGiltImUrsprünglichenText) {
    EXPECT_EQ(PositionOhneGroß("Der Öde Ort", "öde"), 4U);
    EXPECT_EQ(PositionOhneGroß("ȺȺ ẞ Ziel", "ZIEL"), 9U);
    EXPECT_EQ(PositionOhneGroß("\u212A\u212A ſort", "SORT"), 7U) << "3 bytes fold to 1";
    EXPECT_EQ(PositionOhneGroß("abcabc", "ABC", 1), 3U);
    EXPECT_EQ(PositionOhneGroß("abc", "", 3), 3U);
    EXPECT_EQ(PositionOhneGroß("abc", "", 4), Nirgends);
    EXPECT_EQ(PositionOhneGroß("abc", "abcd"), Nirgends);
    EXPECT_EQ(PositionOhneGroß("xä\xA4", "\xA4"), 3U) << "not the second half of the letter";
    EXPECT_EQ(PositionOhneGroß("ää\xC3", "\xC3"), 4U);
    const std::string Lang = std::string(5000, 'x') + "ſ" + std::string(40, 'y') + "ENDE";
    EXPECT_EQ(PositionOhneGroß(Lang, std::string(40, 'Y') + "ende"), 5002U);
}

TEST(OhneGroß, BösartigerTextKostetKeineQuadratischeZeit) {
    const std::string Text(4'000'000, 'a');
    const std::string Teil = std::string(400'000, 'A') + "b";
    const auto Anfang = std::chrono::steady_clock::now();
    EXPECT_EQ(PositionOhneGroß(Text, Teil), Nirgends);
    std::string Umlaute;
    for (int i = 0; i < 200'000; ++i)
        Umlaute += "ä";
    EXPECT_EQ(PositionOhneGroß(Umlaute, Umlaute.substr(0, 100'000) + "\xC3"), Nirgends);
    EXPECT_LT(std::chrono::steady_clock::now() - Anfang, std::chrono::seconds(5));
}

TEST(Teile, SchneidenVerbindenErsetzen) {
    using Liste = std::vector<std::string>;
    EXPECT_EQ(Teilen("", "|"), Liste{""});
    EXPECT_EQ(Teilen("|a||", "|"), (Liste{"", "a", "", ""}));
    EXPECT_EQ(Verbinden(Teilen("a, b, c", ", "), "|"), "a|b|c");
    EXPECT_EQ(Ersetzen("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(Ersetzen("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Kürzen("  a b\t "), "a b\t");
    EXPECT_EQ(Kürzen("   "), "");
    EXPECT_EQ(RechtsKürzen("  a  "), "  a");
}

}  // namespace
}  // namespace liedwerk
