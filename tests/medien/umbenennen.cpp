// Renaming: which names come out, that none leads where only the person may send a file, and that the entry
// follows the file.
#include "medien/umbenennen.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "dateien/hinzufuegen.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "tests/medien/umgebung.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;
using F = Umbenennfunktion;

Katalog MitSatz(std::string_view Pfad, std::string_view Interpret, std::string_view Titel) {
    Katalog Index;
    Datensatz Satz;
    Satz.HatId3v1 = TagVorhanden;
    Satz.Interpret = Interpret;
    Satz.Titel = Titel;
    SatzAnhängen(Index, Pfad, Satz);
    return Index;
}

TEST(Namenspläne, NachFormat) {
    constexpr std::string_view Normal = "%Interpret% - %Titel%";
    const struct {
        std::string_view Pfad, Interpret, Titel, Format, Neu;
        bool Frage = false;
    } Fälle[] = {
        {"/m/a.mp3", "Abba", "Gold", Normal, "/m/Abba - Gold.mp3"},
        {"C:\\m\\a.mp3", "Abba", "Gold", Normal, "C:\\m\\Abba - Gold.mp3"},
        {"/m/a.mp3", "", "Gold", Normal, "/m/ - Gold.mp3"},
        {"/m/a.mp3", "", "", Normal, "/m/ - .mp3", true},
        {"/m/a.mp3", "x", "y", "fest", "/m/fest.mp3", true},
        {"/m/a.mp3", "%Titel%", "Gold", "%INTERPRET% 100%", "/m/%Titel% 100%.mp3"},
        // Typed separators make folders, those of a tag do not.
        {"/m/a.mp3", "AC/DC", "..", "%Interpret%\\x/%Titel%x", "/m/AC_DC/x/..x.mp3"},
        {"/m/a.mp3", "../../etc", "x\\y", Normal, "/m/.._.._etc - x_y.mp3"},
        {"/m/a.mp3", "/etc/passwd", "", "%Interpret%", "/m/_etc_passwd.mp3"},
        {"C:\\m\\a.mp3", "Abba", "Gold", "c:\\%Interpret%\\%Titel%.mp3", "c:\\Abba\\Gold.mp3.mp3"},
        {"/m/a.mp3", "Abba", "Gold", "/ziel/%Interpret%/%Titel%", "/ziel/Abba/Gold.mp3"},
        {"/m/a.mp3", "Was?", "<*|>\n\x1b[2J", Normal, "/m/Was - [2J.mp3"},
        // Refused: nothing left of a part, a way up, a drive or a colon that only a tag has named.
        {"/m/a.mp3", "..", "Gold", "%Interpret%/%Titel%", ""},
        {"/m/a.mp3", "", "Gold", "%Interpret%/%Titel%", ""},
        {"/m/a.mp3", "", "Gold", "x/%Interpret%/%Titel%", ""},
        {"/m/a.mp3", " ", "Gold", "%Titel%/%Interpret%", ""},
        {"/m/a.mp3", "?", "Gold", "%Interpret%", ""},
        {"/m/a.mp3", "C:", "x", "%Interpret%%Titel%", ""},
        {"/m/a.mp3", "Oper: Akt", "1", Normal, ""},
        {"/m/a.mp3", "x", "y", "../%Titel%", ""},
        {"/m/a.mp3", "x", "y", "/ziel/../%Titel%", ""},
        {"/m/a.mp3", "x", "y", "%Titel%/", ""},
    };
    for (const auto& Fall : Fälle) {
        const auto Plan =
            NamePlanenNachFormat(MitSatz(Fall.Pfad, Fall.Interpret, Fall.Titel), 1, Fall.Format);
        EXPECT_EQ(Plan.Neu, Fall.Neu) << Fall.Format;
        EXPECT_EQ(Plan.Hindernis.empty(), !Fall.Neu.empty()) << Fall.Format;
        EXPECT_EQ(!Plan.Frage.empty(), Fall.Frage) << Fall.Format;
    }
}

TEST(Namenspläne, ErsetzenSchreibweiseEndungUndEingabe) {
    const auto Ersetzt = [](std::string_view Pfad, std::string_view Alt, std::string_view Neu,
                            bool AuchPfad) { return NamePlanenErsetzt(Pfad, Alt, Neu, AuchPfad).Neu; };
    EXPECT_EQ(Ersetzt("/m/a_b_c.mp3", "_", " ", false), "/m/a b c.mp3");
    EXPECT_EQ(Ersetzt("/m_x/a.mp3", "_", "-", false), "/m_x/a.mp3") << "not in the folder";
    EXPECT_EQ(Ersetzt("/m/a.mp3.mp3", ".mp3", "", false), "/m/a.mp3");
    EXPECT_EQ(Ersetzt("/m/Abba - Gold.mp3", " - ", "\\", false), "/m/Abba/Gold.mp3");
    EXPECT_EQ(Ersetzt("/alt/x: y?.mp3", "alt", "neu", true), "/neu/x: y?.mp3") << "what stood there stays";
    EXPECT_EQ(Ersetzt("C:\\alt\\x.mp3", "C:", "D:", true), "D:\\alt\\x.mp3");
    EXPECT_EQ(Ersetzt("\\\\server\\alt\\x.mp3", "alt", "neu", true), "\\\\server\\neu\\x.mp3");
    for (const auto* Neu : {"../", "/x/", ":", "//"})
        EXPECT_EQ(Ersetzt("/m/ab.mp3", "a", Neu, false), "") << Neu;
    EXPECT_EQ(Ersetzt("/m/ab.mp3", "ab", "", false), "");
    EXPECT_EQ(Ersetzt("/m/ab.mp3", "/m", "", true), "/ab.mp3");
    EXPECT_EQ(Ersetzt("/m/ab.mp3", "/", "", true), "");

    using S = Namensschreibweise;
    const std::pair<S, std::string_view> Wahlen[] = {{S::Groß, "/M/ÄB (CD) EF.mp3"},
                                                     {S::Klein, "/M/äb (cd) ef.mp3"},
                                                     {S::KleinErstenGroß, "/M/Äb (Cd) ef.mp3"},
                                                     {S::KleinWörterGroß, "/M/Äb (Cd) Ef.mp3"}};
    for (const auto& [Wahl, Neu] : Wahlen)
        EXPECT_EQ(NamePlanenInSchreibweise("/M/äB (cD) EF.mp3", Wahl).Neu, Neu);

    EXPECT_EQ(NamePlanenMitEndung("/m.x/a.mp3", ".ogg").Neu, "/m.x/a.ogg");
    EXPECT_EQ(NamePlanenMitEndung("/m.x/a", "ogg").Neu, "/m.x/a.ogg");
    EXPECT_EQ(NamePlanenMitEndung("/m/a.mp3", "").Neu, "/m/a.mp3");
    EXPECT_EQ(NamePlanenMitEndung("/m/a.mp3", "x/y").Neu, "");

    EXPECT_EQ(NamePlanenEingegeben("/m/a.mp3", "b\\c.mp3").Neu, "/m/b/c.mp3");
    EXPECT_EQ(NamePlanenEingegeben("/m/a.mp3", "/x/c.mp3").Neu, "/x/c.mp3");
    EXPECT_EQ(NamePlanenEingegeben("/m/a: b\\?.mp3", "a: b\\?.mp3").Neu, "/m/a: b\\?.mp3") << "unchanged";
    for (const auto* Eingabe : {"", "..", "a/../../b", "ab:c"})
        EXPECT_EQ(NamePlanenEingegeben("/m/a.mp3", Eingabe).Neu, "") << Eingabe;
}

TEST(Namenspläne, FortlaufendBehältNullenBisZumErstenZusammenstoß) {
    std::string Zähler = "007";
    std::string Vorhanden;
    const auto Existiert = [&](std::string_view Pfad) { return Pfad == Vorhanden; };
    EXPECT_EQ(FortlaufendenNamenBilden("/m/x.mp3", "Lied ", Zähler, "!", Existiert).Neu, "/m/Lied 007!.mp3");
    Vorhanden = "/m/Lied 007!.mp3";
    EXPECT_EQ(FortlaufendenNamenBilden("/m/x.mp3", "Lied ", Zähler, "!", Existiert).Neu, "/m/Lied 8!.mp3");
    EXPECT_EQ(Zähler, "8");
    int Fragen = 0;
    const auto Immer = [&](std::string_view) { return ++Fragen > 0; };
    const auto Plan = FortlaufendenNamenBilden("/m/x.mp3", "", Zähler, "", Immer);
    EXPECT_TRUE(Plan.Neu.empty() && !Plan.Hindernis.empty());
    EXPECT_EQ(Fragen, 10001);
}

struct Umbenennprobe : Medien {
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::Laufwerksliste Drives;
    Systemordnerleser Leser;
    Einstellungen Werte;
    Katalog Index;
    Mediumspeicher Medium;
    int Gelesen = 0;
    std::deque<std::string> Eingaben;
    Umbenennumgebung Um{{Index, Werte, Person, Log, Leser, Medium, {Drives, Werte, Log, {}}},
                        [this](std::string_view, const Datensatz& Vorgabe, const Leseauftrag&) {
                            ++Gelesen;
                            return Vorgabe;
                        },
                        [this](std::string_view, const std::string&) -> std::optional<std::string> {
                            if (Eingaben.empty()) return std::nullopt;
                            std::string Erste = Eingaben.front();
                            Eingaben.pop_front();
                            return Erste;
                        }};

    Satznummer Lied(std::string_view Name, std::string_view Titel) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Titel = Titel;
        Satz.AbspielHäufigkeit = 7;
        return SatzAnhängen(Index, Anlegen(Name, Name), Satz);
    }
    Umbenennergebnis Tun(Satznummer Nummer, Umbenennauftrag Auftrag) {
        return DateiUmbenennen(Um, Auftrag, Nummer, Auftrag.FortlaufendZahl);
    }
    std::string In(std::string_view Name) const { return (Ordner / Name).string(); }
    std::string Inhalt(std::string_view Name) const { return DateiLesen(In(Name)).value_or("(fehlt)"); }
};

TEST_F(Umbenennprobe, DerEintragFolgtDerDateiUndBehältSeineStatistik) {
    const Satznummer Eins = Lied("eins.mp3", "Gold");
    const auto Ergebnis = Tun(Eins, {.Format = "neu/%Titel%"});
    EXPECT_TRUE(Ergebnis.Behandelt && Ergebnis.Geändert && Ergebnis.Meldung.empty());
    EXPECT_EQ(Index.Sätze.Pfad(Eins), In("neu/Gold.mp3"));
    EXPECT_EQ(Inhalt("neu/Gold.mp3"), "eins.mp3");
    EXPECT_EQ(Index.Sätze.Zahl(Eins, FeldAbspielHäufigkeit), 7);
    EXPECT_EQ(Gelesen, 1);
    EXPECT_TRUE(Index.IndexGeändert);

    // An occupied name asks; skipped, both files stay. Cancelled, the run ends.
    const Satznummer Zwei = Lied("zwei.mp3", "Gold");
    EXPECT_TRUE(Tun(Zwei, {.Format = "neu/%Titel%"}).Übersprungen);
    Person.Vorhandene = {Vorhandenantwort::Abbrechen, Vorhandenantwort::Umbenennen};
    EXPECT_TRUE(Tun(Zwei, {.Format = "neu/%Titel%"}).Abgebrochen);
    EXPECT_EQ(Inhalt("zwei.mp3"), "zwei.mp3");
    EXPECT_EQ(Tun(Zwei, {.Format = "neu/%Titel%"}).Neu, In("neu/Gold-0.mp3"));
    EXPECT_EQ(Inhalt("neu/Gold.mp3"), "eins.mp3");

    // Without data the person is asked and may refuse; a name that is too long is told.
    EXPECT_FALSE(Tun(Zwei, {.Format = "%Album%"}).Behandelt);
    EXPECT_NE(Person.Gefragt.back().find("(Rückgabe war '')"), std::string::npos);
    const auto Lang = Tun(Zwei, {.Format = std::string(300, 'x') + "%Titel%"});
    EXPECT_FALSE(Lang.Behandelt);
    EXPECT_NE(Lang.Meldung, "");
    EXPECT_EQ(Index.Sätze.Pfad(Zwei), In("neu/Gold-0.mp3"));

    // A new spelling is a rename; the same name is no work.
    EXPECT_EQ(Tun(Zwei, {.Funktion = F::Schreibweise, .Schreibweise = Namensschreibweise::Groß}).Neu,
              In("neu/GOLD-0.mp3"));
    Gelesen = 0;
    EXPECT_TRUE(Tun(Zwei, {.Funktion = F::Endung, .Endung = "mp3"}).Behandelt);
    EXPECT_EQ(Gelesen, 0);
    Werte.Mp3TagLesen = "000";
    EXPECT_EQ(Tun(Zwei, {.Funktion = F::Fortlaufend, .FortlaufendZahl = "01"}).Neu, In("neu/01.mp3"));
    EXPECT_EQ(Gelesen, 0);
}

TEST_F(Umbenennprobe, FunktionenAmIndexLassenDieDateiInRuhe) {
    const Satznummer Eins = Lied("eins.mp3", "Gold");
    const Umbenennauftrag Nichts{.Funktion = F::IndexZeichenErsetzen, .Ersetzen = "fehlt"};
    EXPECT_TRUE(Tun(Eins, Nichts).Behandelt);
    EXPECT_FALSE(Tun(Eins, Nichts).Geändert);
    EXPECT_EQ(Gelesen, 0);
    EXPECT_EQ(
        Tun(Eins, {.Funktion = F::IndexZeichenErsetzen, .Ersetzen = "eins", .ErsetzenDurch = "zwei"}).Neu,
        In("zwei.mp3"));
    EXPECT_EQ(Inhalt("eins.mp3"), "eins.mp3");
    EXPECT_EQ(Inhalt("zwei.mp3"), "(fehlt)");
    EXPECT_EQ(Gelesen, 0) << "nothing would be left of what the entry knows";
    // The typed entry must be a file; it is asked for again until it is, or until the person gives up.
    Eingaben = {"fehlt.mp3", "eins.mp3"};
    const auto Ergebnis = Tun(Eins, {.Funktion = F::IndexManuell, .VorherLeeren = true});
    EXPECT_EQ(Ergebnis.Neu, In("eins.mp3"));
    EXPECT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_EQ(Index.Sätze.Zahl(Eins, FeldAbspielHäufigkeit), 0) << "emptied, as chosen";
    EXPECT_FALSE(Tun(Eins, {.Funktion = F::Manuell}).Behandelt);
    // Set right while its medium is away, the entry is still looked for under the label of that medium.
    Datensatz Fern;
    Fern.Wechselmedium = "STICK";
    const Satznummer Zwei = SatzAnhängen(Index, In("stick/alt.mp3"), Fern);
    const Umbenennauftrag Ersetzt{
        .Funktion = F::IndexZeichenErsetzen, .Ersetzen = "alt", .ErsetzenDurch = "neu"};
    EXPECT_EQ(Tun(Zwei, Ersetzt).Neu, In("stick/neu.mp3"));
    EXPECT_EQ(Index.Sätze.Pfad(Zwei), In("stick/neu.mp3"));
    EXPECT_EQ(Index.Sätze.Text(Zwei, FeldWechselmedium), "STICK");
}

TEST_F(Umbenennprobe, AttributeUndLeereDateien) {
    const Satznummer Eins = Lied("eins.mp3", "Gold");
    EXPECT_TRUE(Tun(Eins, {.Funktion = F::Attribute, .Schreibschutz = true}).Behandelt);
    EXPECT_EQ(fs::status(In("eins.mp3")).permissions() & fs::perms(0222), fs::perms::none);
    EXPECT_TRUE(Tun(Eins, {.Funktion = F::Attribute}).Behandelt);
    EXPECT_NE(fs::status(In("eins.mp3")).permissions() & fs::perms(0200), fs::perms::none);
    Anlegen("eins.da", "fremd");
    EXPECT_NE(Tun(Eins, {.Funktion = F::LeereDatei, .Endung = "da"}).Meldung, "");
    EXPECT_TRUE(Inhalt("eins.mp3") == "eins.mp3" && Inhalt("eins.da") == "fremd");
    EXPECT_EQ(Tun(Eins, {.Funktion = F::LeereDatei, .Endung = "inanderemordner"}).Neu,
              In("eins.inanderemordner"));
    EXPECT_TRUE(Inhalt("eins.mp3") == "(fehlt)" && Inhalt("eins.inanderemordner").empty());
}

TEST(Umbenennauftrag, FehlendeEingabenWerdenGenannt) {
    const std::pair<Umbenennauftrag, std::string_view> Fälle[] = {
        {{}, "Es wurde kein Format bei der ID3-Umbenennung angegeben."},
        {{.Funktion = F::ZeichenErsetzen}, "Das Feld für die Ersetzen-Formatierung ist leer."},
        {{.Funktion = F::Fortlaufend},
         "Es wurde keine Start-Zeichenfolge bei der fortlaufenden Umbenennung angegeben."},
        {{.Funktion = F::Fortlaufend, .FortlaufendZahl = "a"},
         "Die Start-Zeichenfolge bei der fortlaufenden Umbenennung muss eine Zahl sein."},
        {{.Funktion = F::Fortlaufend, .FortlaufendZahl = "7"}, ""},
        {{.Funktion = F::Schreibweise},
         "Bitte markieren Sie, ob Sie den Dateinamen in Groß- oder in Kleinschreibung ändern wollen."},
        {{.Funktion = F::Endung}, "Bitte geben Sie eine neue Datei-Endung ein."},
        {{.Funktion = F::IndexZeichenErsetzen}, "Das Feld für die IndexErsetzen-Formatierung ist leer."},
        {{.Funktion = F::Manuell}, ""}};
    for (const auto& [Auftrag, Meldung] : Fälle)
        EXPECT_EQ(UmbenennauftragPrüfen(Auftrag), Meldung);
}

}  // namespace
}  // namespace liedwerk
