// What changes the person's files: tags, names, places.
#include <algorithm>
#include <functional>

#include "haerte/namen/pruefstand.h"
#include "haerte/namen/urteil.h"

namespace liedwerk::haerte {
namespace {

const Erlaubnis Musik{.Ordner = {"musik"}};
const Erlaubnis Beides{.Ordner = {"musik", "ziel"}};

Worte Mit(Worte Anfang, const Worte& Rest) {
    Anfang.insert(Anfang.end(), Rest.begin(), Rest.end());
    return Anfang;
}

// Runs it, judges where the sounds are, and puts everything back.
void Mal(const Prüfstand& Stand, const Worte& Was, const Erlaubnis& Darf,
         const std::function<void()>& Danach = {}) {
    Stand.Befehl(Was, Darf);
    if (Danach) Danach();
    Stand.TönePrüfen(Darf.Ordner);
    Stand.Prüfen(Anzahl(Stand.Inhalt("i.lwi"), "\n#TAG:") == Stand.Dateien().size(), "Sätze nach " + Was[0]);
    Stand.Zurück();
}

void Tags(const Prüfstand& Stand) {
    Stand.FallBeginnen("TAGs schreiben und entfernen");
    const Worte& Alle = Stand.AlleDateien();
    std::size_t Nummer = 0;
    for (const auto& [Was, Wert] : Stand.Werte()) {
        const std::string& Datei = Alle[Nummer++ % (Alle.size() / 2)];
        for (const char* Modern : {"TAGsModern=0", "TAGsModern=1"}) {
            Stand.Befehl({"--setze", Modern, "tag-schreiben", "--v1", "Titel=" + Wert, "--v2",
                          "V2Titel=" + Wert, "--v2", "V2Kommentar=" + Wert, "--", Datei},
                         Musik);
            Stand.Json({"datei-info", "--", Datei});
        }
        Stand.Befehl({"tag-schreiben", "--v1", Wert, "--", Datei}, {.Ordner = {"musik"}, .AuchFalsch = true});
    }
    Stand.TönePrüfen({"musik"});
    Stand.Zurück();
    Mal(Stand, Mit({"tag-entfernen", "--v1", "--v2", "--lyrics", "--"}, Alle), Musik);
    Mal(Stand, Mit({"tag-funktion", "Schreibweise: Groß", "Alle ID3v1-TAGs", "--"}, Alle), Musik);
    Mal(Stand, Mit({"tag-funktion", "Schreibweise: Klein, Wörter groß", "Alle ID3v2-TAGs", "--"}, Alle),
        Musik);
    Mal(Stand, Mit({"--setze", "AutoTagAktuell=%automatik%", "tag-aufraeumen", "--"}, Alle), Musik);
    Stand.FallBeenden();
}

void AutoTags(const Prüfstand& Stand) {
    Stand.FallBeginnen("AutoTAG");
    const Worte& Alle = Stand.AlleDateien();
    Mal(Stand, Mit({"autotag", "--format", "%automatik%", "--schreiben", "--"}, Alle), Musik);
    Mal(Stand, Mit({"autotag", "--format", "%Interpret%/%Titel%", "--ziel", "2", "--schreiben", "--"}, Alle),
        Musik);
    for (const auto& [Was, Name] : Stand.Namen()) {
        Stand.Befehl(Mit({"autotag", "--format", Name + "%Titel%", "--"}, Alle), {.AuchFalsch = true});
        Stand.Befehl(Mit({"autotag", "--format", Name, "--"}, Alle), {.AuchFalsch = true});
    }
    Stand.FallBeenden();
}

// How many folders lie within each other below the collection.
std::ptrdiff_t Tiefe(const Prüfstand& Stand) {
    std::ptrdiff_t Größte = 0;
    for (const auto& [Name, Eintrag] : WeltAufnehmen(Stand.Pfad("musik")))
        if (Eintrag.Art == 'd') Größte = std::max(Größte, std::ranges::count(Name, '/') + 1);
    return Größte;
}

void Umbenennen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Umbenennen");
    const Worte& Alle = Stand.AlleDateien();
    for (const char* Format :
         {"%Titel%", "%Interpret%/%Titel%", "%Interpret%\\%Album%\\%Titel%", "%Titel-ID3v2%",
          "%Interpret-ID3v2% - %Titel-ID3v2%", "neu/%Kommentar%/%Dateiname%", "%Pfad+Dateiname%"}) {
        Stand.Befehl(Mit({"umbenennen", "--probe", "--format", Format, "--"}, Alle));
        // Each separator of the format may make a folder, no other one.
        const std::string_view Text = Format;
        const std::ptrdiff_t Erlaubte =
            Tiefe(Stand) + std::ranges::count(Text, '/') + std::ranges::count(Text, '\\');
        Mal(Stand, Mit({"umbenennen", "--format", Format, "--"}, Alle), Musik,
            [&] { Stand.Prüfen(Tiefe(Stand) <= Erlaubte, std::string("Ordner aus einem TAG: ") + Format); });
    }
    // What the person typed may make folders below that of the file, but no tag and no name leads out of it.
    for (const auto& [Was, Name] : Stand.Namen())
        Mal(Stand, {"umbenennen", "--format", "x" + Name + "%Titel%", "--", Stand.Dateien()[3]}, Musik);
    Stand.FallBeenden();
}

void Bewegen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Kopieren, Verschieben, Löschen");
    Worte Nummern;
    for (std::size_t i = 1; i <= Stand.Dateien().size(); ++i)
        Nummern.push_back(std::to_string(i));
    const Erlaubnis Ziel{.Ordner = {"ziel"}};
    for (const bool Struktur : {false, true}) {
        Worte Anfang = {"kopieren", "--ziel", Stand.Pfad("ziel")};
        if (Struktur) Anfang.emplace_back("--struktur");
        Stand.Befehl(Mit(Anfang, Nummern), Ziel);
        Stand.Zurück();
        Anfang.emplace_back("--verschieben");
        Mal(Stand, Mit(Anfang, Nummern), Beides);
    }
    for (const auto& [Was, Name] : Stand.Namen()) {
        Stand.Befehl({"kopieren", "--struktur", "--ziel", Stand.Pfad("ziel/" + Name), "1"}, Ziel);
        Stand.Zurück();
        Mal(Stand, {"kopieren", "--verschieben", "--ziel", Stand.Pfad("ziel/" + Name), "2"}, Beides);
    }
    Stand.Handgriff("alle-papierkorb", Musik);
    Stand.TönePrüfen({"musik", "heim"});
    Stand.Prüfen(Anzahl(Stand.Inhalt("i.lwi"), "\n#TAG:") == 0, "Sätze nach dem Papierkorb");
    Stand.Zurück();
    Stand.Handgriff("alle-loeschen", Musik);
    Stand.Prüfen(Anzahl(Stand.Inhalt("i.lwi"), "\n#TAG:") == 0, "Sätze nach dem Löschen");
    Stand.Zurück();
    Mal(Stand, {"sortieren", "Titel", "Interpret", "Pfad+Dateiname"}, Musik);
    Stand.FallBeenden();
}

// A stranger's index: its paths and rules lead anywhere. Copying with folders stays below the target, and
// what is not there is not made.
void FremderIndex(const Prüfstand& Stand) {
    Stand.FallBeginnen("fremder Index");
    const std::string Alter = Stand.Inhalt("i.lwi");
    std::string Neuer = Alter.substr(0, Alter.find("\n#TAG:", 1) + 1);
    Neuer +=
        "#OPT:SPALTEN_NUTZERFORMAT=%Titel%<b>$(touch gehackt)\r\n#OPT:EIGENTUEMER=<img src=x>\x1b[2J\r\n";
    std::size_t Anzahl = 0;
    std::size_t Wirkliche = 0;  // paths of this system
    for (const auto& [Was, Wert] : BöseWerte()) {
        if (Wert.find_first_of("\r\n") != std::string::npos) continue;
        Neuer += "#OPT:SYNC=" + Wert + ",1,\r\n";
        for (const std::string& Pfad :
             {Wert, Wert + ".mp3", Stand.Pfad("musik/../ziel/../musik/~.mp3"), Stand.Pfad("musik/") + Wert}) {
            Neuer += "#TAG:" + std::to_string(Pfad.size()) + "|" + Pfad + "\r\n";
            ++Anzahl;
            if (Pfad.starts_with('/')) ++Wirkliche;
        }
    }
    Worte Nummern;
    for (std::size_t i = 1; i <= Anzahl; ++i)
        Nummern.push_back(std::to_string(i));
    const auto Fremd = [&](const Worte& Was, const Erlaubnis& Darf) {
        Stand.Schreiben("i.lwi", Neuer);
        Stand.Befehl(Was, Darf);
        Stand.Zurück();
    };
    const std::string Spieler = Stand.Pfad("spieler/x");
    Fremd({"index-info"}, {});
    Fremd({"saetze"}, {});
    Fremd(Mit({"kopieren", "--struktur", "--ziel", Stand.Pfad("ziel")}, Nummern), {.Ordner = {"ziel"}});
    Fremd(Mit({"kopieren", "--ziel", Stand.Pfad("ziel")}, Nummern), {.Ordner = {"ziel"}});
    Fremd({"aufraeumen", "--methode", "5"}, {});
    Fremd({"synchronisieren"}, {});
    Fremd({"export", "--format", "m3u8", Stand.Pfad("aus/f.m3u8")}, {});
    Stand.Attrappe("spieler/x");
    Stand.Schreiben("i.lwi", Neuer);
    Stand.Befehl(Mit({"--setze", "WinampPfad=" + Spieler, "abspielen"}, Nummern),
                 {.Ordner = {"spieler"}, .Programme = {Spieler}});
    // No address and no switch gets into the player's list.
    for (const Worte& Einer : Stand.Aufrufe("spieler/x", 2))
        Stand.Prüfen(Einer.size() == 1, "Spieler: " + std::to_string(Einer.size()) + " Worte");
    for (const std::string& Zeile : Zeilen(Stand.Inhalt("spieler/x.liste")))
        Stand.Prüfen(Zeile.starts_with('#') || Zeile.starts_with('/') || Zeile.starts_with("C:\\"),
                     "im Spieler: " + Zeile);
    const std::string Anwendung = Stand.Attrappe("suchpfad/xdg-open");
    Stand.Befehl(Mit({"abspielen", "--standard"}, Nummern),
                 {.Ordner = {"suchpfad"}, .Programme = {Anwendung}});
    for (const Worte& Einer : Stand.Aufrufe("suchpfad/xdg-open", Wirkliche))
        for (const std::string& Wort : Einer)
            Stand.Prüfen(Wort.starts_with('/'), "an den Desktop übergeben: " + Wort);
    Stand.Zurück();
    Stand.FallBeenden();
}

void Synchronisieren(const Prüfstand& Stand) {
    Stand.FallBeginnen("Synchronisieren");
    std::string Index = Stand.Inhalt("i.lwi");
    Index.insert(Index.find('\n') + 1, "#OPT:SYNC=" + Stand.Pfad("musik") + ",1,\r\n");
    Stand.Schreiben("i.lwi", Index);
    Stand.Befehl({"--setze", "SyncGeänderteLesen=1", "synchronisieren"});
    Stand.Prüfen(Anzahl(Stand.Inhalt("i.lwi"), "\n#TAG:") == Stand.Dateien().size(), "Zahl der Sätze");
    Stand.Zurück();
    Stand.FallBeenden();
}

}  // namespace

void ÄndernPrüfen(const Prüfstand& Stand) {
    Stand.Zurück();
    Tags(Stand);
    AutoTags(Stand);
    Umbenennen(Stand);
    Bewegen(Stand);
    Synchronisieren(Stand);
    FremderIndex(Stand);
}

}  // namespace liedwerk::haerte
