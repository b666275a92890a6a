// What leaves the program as a list, and comes back: exports, index, fields, play lists, the hand-over.
#include <algorithm>
#include <set>

#include "haerte/namen/pruefstand.h"
#include "haerte/namen/urteil.h"

namespace liedwerk::haerte {
namespace {

const std::string Spalten = "Interpret,Titel,Album,Pfad+Dateiname";
constexpr std::size_t Spaltenzahl = 4;

// The entries of a play list; every one must be a file of the index.
void ListePrüfen(const Prüfstand& Stand, const std::string& Text, std::string_view Anfang,
                 const std::string& Was) {
    const std::set<std::string> Bekannte(Stand.Dateien().begin(), Stand.Dateien().end());
    std::set<std::string> Einträge;
    std::size_t Anzahl = 0;
    for (const std::string& Zeile : Zeilen(Text)) {
        std::string Pfad = Zeile;
        if (!Anfang.empty()) {
            if (!Zeile.starts_with(Anfang)) continue;
            Pfad = Zeile.substr(Zeile.find('=') + 1);
        } else if (Zeile.empty() || Zeile.starts_with('#')) {
            continue;
        }
        ++Anzahl;
        Stand.Prüfen(Bekannte.contains(Pfad), Was + ": fremder Eintrag " + Pfad);
        Einträge.insert(Pfad);
    }
    Stand.Prüfen(Anzahl == Bekannte.size() && Einträge == Bekannte,
                 Was + ": " + std::to_string(Anzahl) + " Einträge");
}

void TabellePrüfen(const Prüfstand& Stand, std::string_view Text) {
    Stand.Prüfen(Text.starts_with("\xEF\xBB\xBF") && GültigesUtf8(Text), "Tabelle: kein UTF-8");
    const auto Sätze = CsvLesen(Text.substr(3), ';');
    if (!Sätze) return Stand.Bruch("Tabelle: kein CSV");
    Stand.Prüfen(Sätze->size() == Stand.Dateien().size() + 1,
                 "Tabelle: " + std::to_string(Sätze->size()) + " Sätze");
    for (const auto& Satz : *Sätze) {
        Stand.Prüfen(Satz.size() == Spaltenzahl, "Tabelle: " + std::to_string(Satz.size()) + " Felder");
        for (const std::string& Feld : Satz)
            Stand.Prüfen(!IstFormel(Feld), "Tabelle: Formel " + Feld);
    }
}

void Exportieren(const Prüfstand& Stand) {
    Stand.FallBeginnen("Exporte");
    const std::size_t Sätze = Stand.Dateien().size();
    const auto Liste = [&](const Worte& Wie, const std::string& Ziel) {
        Worte Ganz = {"export", "--spalten", Spalten};
        Ganz.insert(Ganz.end(), Wie.begin(), Wie.end());
        Ganz.push_back(Stand.Pfad("aus/" + Ziel));
        Stand.Prüfen(Stand.Befehl(Ganz).Gelungen(), Ziel + " nicht geschrieben");
        return Stand.Inhalt("aus/" + Ziel);
    };
    for (const char* Trenner : {"komma", "tabulator", "semikolon", "leerzeichen"}) {
        for (const bool Striche : {false, true}) {
            Worte Wie = {"--format", "text", "--trennzeichen", Trenner};
            if (Striche) Wie.emplace_back("--anfuehrungszeichen");
            Stand.Prüfen(Zeilen(Liste(Wie, "t.csv")).size() == Sätze + 1, "Text: Zahl der Zeilen");
        }
    }
    // The page shows values as they are (docs/verlaesslichkeit.md); its own rows are counted.
    Stand.Prüfen(Anzahl(Liste({"--format", "html"}, "h.htm"), "<tr bgcolor=") == Sätze + 1,
                 "HTML: Zahl der Reihen");
    ListePrüfen(Stand, Liste({"--format", "playliste"}, "l.m3u"), "", "M3U");
    ListePrüfen(Stand, Liste({"--format", "playliste"}, "l.pls"), "File", "PLS");
    const std::string Utf8 = Liste({"--format", "m3u8"}, "l.m3u8");
    ListePrüfen(Stand, Utf8, "", "M3U8");
    Stand.Prüfen(Anzahl(Utf8, "\n#EXTINF:") == Sätze, "M3U8: Zahl der Titelzeilen");
    TabellePrüfen(Stand, Liste({"--format", "tabelle"}, "t.csv"));
    Stand.Prüfen(JsonEinträge(Liste({"--format", "json"}, "j.json")) == Sätze, "JSON: Zahl der Einträge");
    Stand.FallBeenden();
}

void NamenDerZiele(const Prüfstand& Stand) {
    Stand.FallBeginnen("Namen von Index, Listen und Einstellungen");
    for (const auto& [Was, Name] : Stand.Namen()) {
        const std::string Ziel = Stand.Pfad("aus/" + Name);
        Stand.Befehl({"--index", Ziel, "index-neu"});
        Stand.Befehl({"--index", Ziel, "hinzufuegen", "--", Stand.Pfad("musik/~.mp3")});
        const auto Lauf = Stand.Befehl({"--index", Ziel, "index-info"});
        Stand.Prüfen(Lauf.Gelungen(), "Index: " + Was);
        // A name that leaves no room for that of the temporary file is refused.
        const auto Export = Stand.Befehl({"export", "--format", "html", "--", Ziel + ".htm"});
        Stand.Prüfen(Export.Gelungen() != Stand.Inhalt("aus/" + Name + ".htm").empty(), "Export: " + Was);
        Stand.Prüfen(Export.Gelungen() || Name.size() > 240, "Export abgelehnt: " + Was);
        Stand.Befehl({"felder-schreiben", "--", Ziel + ".ifd"});
        Stand.Befehl({"felder-lesen", "--", Ziel + ".ifd"});
        Stand.Befehl({"index-speichern", "--ausgabe", Ziel + "2"});
        Stand.Befehl({"--setze", "Dateiname=" + Name, "index-info"});
        Stand.Befehl(
            {"--programmordner", Stand.Pfad("aus/p" + Name), "--einstellungen", Ziel + ".conf", "cd-cache"});
    }
    Stand.Zurück();
    Stand.FallBeenden();
}

void Felder(const Prüfstand& Stand) {
    Stand.FallBeginnen("Felder (.ifd)");
    Stand.Befehl({"felder-schreiben", Stand.Pfad("aus/f.ifd")});
    Stand.Prüfen(Anzahl(Stand.Inhalt("aus/f.ifd"), "\n#TAG:") == Stand.Dateien().size(), "Zahl der Zeilen");
    const std::string Vorher = Stand.Inhalt("i.lwi");
    Stand.Befehl({"felder-lesen", Stand.Pfad("aus/f.ifd")});
    Stand.Prüfen(Stand.Inhalt("i.lwi") == Vorher, "Index verändert");
    Stand.FallBeenden();
}

// A play list and a sheet of evil lines add no file that is not there, and start nothing.
void ListenLesen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Playlisten lesen");
    std::string M3u = "#EXTM3U\n";
    std::string Pls = "[playlist]\n";
    for (const auto& [Was, Wert] : BöseWerte()) {
        M3u += "#EXTINF:1," + Wert + "\n" + Wert + "\n../musik/" + Wert + ".mp3\n";
        Pls += "File1=" + Wert + "\nTitle1=" + Wert + "\n";
    }
    for (const auto& [Name, Inhalt] :
         {std::pair{"aus/b.m3u", M3u}, {"aus/b.m3u8", M3u}, {"aus/b.pls", Pls}}) {
        Stand.Schreiben(Name, Inhalt);
        Stand.Befehl({"hinzufuegen", Stand.Pfad(Name)});
        Stand.Prüfen(Anzahl(Stand.Inhalt("i.lwi"), "\n#TAG:") == Stand.Dateien().size(),
                     std::string("Sätze nach ") + Name);
    }
    // What was exported comes back whole.
    for (const char* Name : {"aus/l.m3u", "aus/l.pls", "aus/l.m3u8"}) {
        Stand.Befehl({"export", "--format", std::string(Name).ends_with("8") ? "m3u8" : "playliste",
                      Stand.Pfad(Name)});
        Stand.Befehl({"--index", Stand.Pfad("aus/z.lwi"), "index-neu"});
        Stand.Befehl({"--index", Stand.Pfad("aus/z.lwi"), "hinzufuegen", Stand.Pfad(Name)});
        const auto Sätze = Anzahl(Stand.Inhalt("aus/z.lwi"), "\n#TAG:");
        Stand.Prüfen(Sätze == Stand.Dateien().size(),
                     std::string(Name) + " zurück: " + std::to_string(Sätze));
    }
    Stand.Zurück();
    Stand.FallBeenden();
}

Worte AlleNummern(const Prüfstand& Stand, Worte Anfang) {
    for (std::size_t i = 1; i <= Stand.Dateien().size(); ++i)
        Anfang.push_back(std::to_string(i));
    return Anfang;
}

std::string OhneBlanks(std::string Text) {
    std::erase_if(Text, [](char Zeichen) { return Zeichen == ' ' || Zeichen == '"'; });
    return Text;
}

// A player gets lists, behind its switches as words: the first file, then all others.
void Abspielen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Übergabe an Spieler");
    for (const auto& [Was, Name] : Stand.Namen()) {
        const std::string Datei = "spieler/" + Name;
        const std::string Spieler = Stand.Attrappe(Datei);
        const Erlaubnis Darf{.Ordner = {"spieler"}, .Programme = {Spieler}};
        Stand.Befehl(AlleNummern(Stand, {"--setze", "WinampPfad=" + Spieler, "--setze",
                                         "WinampParameterAbspielen=" + Name, "--setze",
                                         "WinampParameterHinzufügen=" + Name, "abspielen"}),
                     Darf);
        const auto Aufrufe = Stand.Aufrufe(Datei, 2);
        Stand.Prüfen(Aufrufe.size() == 2, Was + ": " + std::to_string(Aufrufe.size()) + " Aufrufe");
        for (const Worte& Einer : Aufrufe) {
            std::string Schalter;
            for (std::size_t i = 0; i + 1 < Einer.size(); ++i)
                Schalter += Einer[i];
            Stand.Prüfen(OhneBlanks(Schalter) == OhneBlanks(Name), "Schalter verändert: " + Was);
            Stand.Prüfen(!Einer.empty() && Einer.back() == Stand.Pfad("spieler/liedwerk.m3u"),
                         "Liste: " + Was);
        }
        ListePrüfen(Stand, Stand.Inhalt(Datei + ".liste"), "", "Übergabeliste");
        Stand.Befehl({"--setze", "WinampPfad=" + Spieler, "spieler", "zustand"}, Darf);
        Stand.Befehl({"--setze", "WinampPfad=" + Name, "abspielen", "1"});
    }
    Stand.Zurück();
    Stand.FallBeenden();
}

// The desktop's program gets one file at a time.
void MitProgrammÖffnen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Übergabe an den Desktop");
    const std::string Anwendung = Stand.Attrappe("suchpfad/xdg-open");
    Stand.Befehl(AlleNummern(Stand, {"abspielen", "--standard"}),
                 {.Ordner = {"suchpfad"}, .Programme = {Anwendung}});
    Worte Erwartete = Stand.Dateien();
    Worte Gesehene;
    for (const Worte& Einer : Stand.Aufrufe("suchpfad/xdg-open", Erwartete.size()))
        Gesehene.insert(Gesehene.end(), Einer.begin(), Einer.end());
    std::ranges::sort(Gesehene);
    std::ranges::sort(Erwartete);
    Stand.Prüfen(Gesehene == Erwartete, "andere Dateien");
    Stand.Zurück();
    Stand.FallBeenden();
}

}  // namespace

void ListenPrüfen(const Prüfstand& Stand) {
    Stand.Zurück();
    Exportieren(Stand);
    NamenDerZiele(Stand);
    Felder(Stand);
    ListenLesen(Stand);
    Abspielen(Stand);
    MitProgrammÖffnen(Stand);
}

}  // namespace liedwerk::haerte
