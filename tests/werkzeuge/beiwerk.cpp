// Manual page and completions are made from the command table: what is lost on the way would be missing in
// every shell.
#include "werkzeuge/beiwerk.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <unistd.h>

#include "basis/datei.h"
#include "basis/text.h"
#include "ui/text/befehle.h"
#include "werkzeuge/befehlsbild.h"

namespace liedwerk {
namespace {

std::string Vorlage(const std::string& Name) {
    return VorlageFüllen(DateiLesen(std::string(LIEDWERK_WURZEL) + "/daten/" + Name).value_or(""));
}

std::string Ausgabe(const std::string& Befehlszeile) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> Rohr(::popen(Befehlszeile.c_str(), "r"), ::pclose);
    std::string Text;
    std::array<char, 4096> Stück{};
    while (std::fgets(Stück.data(), static_cast<int>(Stück.size()), Rohr.get()) != nullptr)
        Text += Stück.data();
    return Text;
}

// How man(7) writes a text.
std::string Gesetzt(std::string_view Text) {
    return Ersetzen(Text, "-", "\\-");
}

TEST(Beiwerk, HandbuchseiteNenntJedenBefehlMitJederOption) {
    const std::string Seite = Vorlage("man/liedwerk-cli.1.in");
    for (const Befehl& Eintrag : Befehle()) {
        const std::size_t Anfang = Seite.find("\n.SS " + Gesetzt(Eintrag.Name) + "\n");
        ASSERT_NE(Anfang, std::string::npos) << Eintrag.Name;
        const std::string Abschnitt = Seite.substr(Anfang, Seite.find("\n.S", Anfang + 2) - Anfang);
        for (const Optionsform& Form : Eintrag.Optionen) {
            // Once in the usage line, once where it is explained.
            const std::size_t Fund = Abschnitt.find(Gesetzt(Form.Name), Abschnitt.find("\n.TP\n"));
            EXPECT_NE(Fund, std::string::npos) << Eintrag.Name << " " << Form.Name << " is not explained";
        }
    }
    EXPECT_EQ(Seite.find('@'), std::string::npos) << "a part of the template was not filled";
    const std::string Fenster = Vorlage("man/liedwerk.1.in");
    for (const std::string Schalter : {"--dir", "--tag", "--hilfe", "--version"})
        EXPECT_NE(Fenster.find(Gesetzt(Schalter)), std::string::npos) << Schalter;
}

// The parser of the program and the reader of its texts must agree on what an option takes.
TEST(Beiwerk, BilderPassenZumProgramm) {
    std::set<std::string> Globale;
    for (const Befehlsbild& Bild : BefehlsbilderLesen()) {
        for (const Optionsbild& Option : Bild.Optionen) {
            if (Bild.Name.empty()) Globale.insert(Option.Name);
            EXPECT_EQ(Option.MitWert, !Option.Wert.Name.empty()) << Bild.Name << " " << Option.Name;
            std::vector<std::string> Zeile = {Bild.Name.empty() ? "termine" : Bild.Name, Option.Name};
            const std::string Fehler = AufrufLesen(Zeile).Fehler;
            EXPECT_EQ(Option.MitWert, Fehler == Option.Name + " erwartet einen Wert.") << Fehler;
        }
    }
    EXPECT_EQ(Globale.size(), 11U);
    const auto Absätze = HilfeZerlegen("Satz.\n  --a WERT   eins\n             zwei\n  --lang drei");
    ASSERT_EQ(Absätze.size(), 3U);
    EXPECT_EQ(Absätze[1], (std::pair<std::string, std::string>{"--a WERT", "eins zwei"}));
    EXPECT_EQ(Absätze[2].first, "--lang");
}

TEST(Beiwerk, BashVervollständigtWasDieTabelleNennt) {
    const auto Ort = std::filesystem::temp_directory_path() / ("beiwerk-" + std::to_string(::getpid()));
    std::filesystem::create_directories(Ort / "Musik");
    std::ofstream(Ort / "skript") << Vorlage("vervollstaendigung/liedwerk-cli.bash.in");
    const auto Vorschläge = [&Ort](const std::string& Wörter) {
        return Ausgabe("cd '" + Ort.string() + "' && bash -c 'source ./skript; COMP_WORDS=(liedwerk-cli " +
                       Wörter +
                       "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _liedwerk_cli 2>/dev/null; "
                       "printf \"%s,\" \"${COMPREPLY[@]}\"'");
    };
    EXPECT_EQ(Vorschläge("termi"), "termin-naechster,termine,termine-pruefen,");
    EXPECT_EQ(Vorschläge("--ind"), "--index,");
    EXPECT_EQ(Vorschläge("--index M"), "Musik,") << "the value of a global option ahead of the command";
    EXPECT_EQ(Vorschläge("--index termine sor"), "sortieren,") << "a file that is called like a command";
    EXPECT_EQ(Vorschläge("export --trennzeichen se"), "semikolon,");
    EXPECT_EQ(Vorschläge("export --js"), "--json,");
    EXPECT_EQ(Vorschläge("kopieren --ersetzen \"\""), "0,1,2,3,4,");
    EXPECT_EQ(Vorschläge("kopieren --ziel \"\""), "Musik,");
    EXPECT_EQ(Vorschläge("suchen --feld Qual"), "Qualität,");
    EXPECT_EQ(Vorschläge("spieler pos"), "position,");
    std::filesystem::remove_all(Ort);
}

}  // namespace
}  // namespace liedwerk
