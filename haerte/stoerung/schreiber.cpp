#include "haerte/stoerung/schreiber.h"

#include <span>

#include "werkzeuge/tagbau.h"

namespace liedwerk::haerte {
namespace {

using namespace tagbau;

constexpr std::int64_t Früher = 1'600'000'000;

Eintrag Datei(std::string Inhalt) {
    return {'f', std::move(Inhalt), {}, Früher, 0644};
}

const Eintrag Ordner{'d', {}, {}, 0, 0755};

// More than one block of the copying, so that a copy takes several writes; no part is like another one, and
// nothing in it looks like the begin of a frame or a tag.
const std::string& Ton() {
    static const std::string Alles = [] {
        std::string Bytes((std::size_t{1} << 20U) + 9, '\0');
        std::uint32_t Zahl = 1;
        for (char& Byte : Bytes)
            Byte = static_cast<char>(0x80U | ((Zahl = Zahl * 1664525U + 1013904223U) >> 26U));
        return Bytes + MpegRahmen({}, 3);
    }();
    return Alles;
}

std::string V1() {
    return Id3v1Block({.Titel = "alt", .Interpret = "wer"});
}
std::string V2() {
    return Id3v2Tag(3, Id3v2Textrahmen("TIT2", "alt"), 300);
}
std::string Text() {
    return LyricsV2(LyricsFeld("LYR", std::string(100, 'l')));
}

Welt Mit(Welt Mehr) {
    Mehr.try_emplace("prog", Ordner);
    Mehr.try_emplace("e.conf", Datei(""));
    Mehr.try_emplace("heim", Ordner);
    return Mehr;
}

Welt Lied(std::string Bytes) {
    return Mit({{"a.mp3", Datei(std::move(Bytes))}});
}

// Three small files for an index of their own.
Welt Sammlung(Welt Mehr = {}) {
    Mehr.try_emplace("musik", Ordner);
    Mehr.try_emplace("musik/a.mp3", Datei(V2() + Ton() + V1()));
    Mehr.try_emplace("musik/b.mp3",
                     Datei(MpegRahmen({}, 5) + Id3v1Block({.Titel = "b", .Interpret = "wer"})));
    Mehr.try_emplace("musik/c.mp3", Datei(V2() + MpegRahmen({}, 7)));
    return Mit(std::move(Mehr));
}

const Befehlszeile Hinzu = {"--index", "@i.lwi", "hinzufuegen", "@musik"};

Befehlszeile ImIndex(Befehlszeile Befehl) {
    if (Befehl.front().starts_with('!')) return Befehl;
    Befehl.insert(Befehl.begin(), {"--index", "@i.lwi", "--ja"});
    return Befehl;
}

void IndexSchreiber(std::vector<Schreiber>& Alle) {
    const std::vector<Befehlszeile> MitIndex = {Hinzu};
    const Welt Neues = Sammlung({{"neu.mp3", Datei(MpegRahmen({}, 3) + V1())}});
    Alle.push_back({"Index: neu durch Hinzufügen", Sammlung(), {}, Hinzu});
    Alle.back().Teile = {{"--index", "@i.lwi", "index-neu"}};
    Alle.push_back({"Index: neu", Mit({}), {}, {"--index", "@i.lwi", "index-neu"}});
    Alle.push_back({"Index: durch leeren ersetzt", Sammlung(), MitIndex, ImIndex({"index-neu"})});
    Alle.push_back({.Name = "Index: ein Satz dazu",
                    .Anfang = Neues,
                    .Vorbereitung = MitIndex,
                    .Befehl = ImIndex({"hinzufuegen", "@neu.mp3"}),
                    .Kurz = true});
    Alle.push_back({.Name = "Index: ganz, groß",
                    .Anfang = Mit({}),
                    .Vorbereitung = {{"#", "@i.lwi", std::to_string(GroßerIndex)}},
                    .Befehl = ImIndex({"sortieren", "--absteigend", "Titel"}),
                    .Wiederholbar = false,  // equal titles change places
                    .Kurz = true});
    Alle.push_back({"Index: in eine andere Datei", Sammlung(), MitIndex,
                    ImIndex({"index-speichern", "--ausgabe", "@anderer.lwi"})});
    Alle.push_back({"Index: über eine andere Datei", Sammlung({{"anderer.lwi", Datei("etwas anderes")}}),
                    MitIndex, ImIndex({"index-speichern", "--ausgabe", "@anderer.lwi"})});
    Welt Verweis = Sammlung({{"fern", Ordner}, {"i.lwi", {'l', "fern/i.lwi", {}, 0, 0777}}});
    Alle.push_back({"Index: hinter einer Verknüpfung", Verweis, MitIndex,
                    ImIndex({"sortieren", "--absteigend", "Titel"})});
    const std::string Alt = "i.lwi - Backup vom 01.02.2020 03-04-05.bak";
    Alle.push_back(
        {.Name = "Index: mit Sicherungskopie",
         .Anfang = Sammlung({{Alt, Datei("uralt")}}),
         .Vorbereitung = MitIndex,
         .Befehl = ImIndex({"--setze", "BackupsSpeichern=1", "sortieren", "--absteigend", "Titel"}),
         .Kurz = true,
         .Nebensachen = {"i.lwi - Backup vom 21.11.2026 12-00-00.bak", Alt}});
    Alle.push_back({"Index: mit Protokoll", Sammlung({{"prog/log.me", Datei("")}}), MitIndex,
                    ImIndex({"sortieren", "--absteigend", "Titel"})});
    Alle.back().Nebensachen = {"prog/log.txt"};
    Alle.push_back({"Felder: neue Datei", Sammlung(), MitIndex, ImIndex({"felder-schreiben", "@f.ifd"})});
    Alle.push_back({"Felder: über eine Datei", Sammlung({{"f.ifd", Datei("alt")}}), MitIndex,
                    ImIndex({"felder-schreiben", "@f.ifd"})});
    Alle.push_back({"Felder: übernommen", Sammlung({{"f.ifd", Datei("#indexfelder11\r\n")}}), MitIndex,
                    ImIndex({"felder-lesen", "@f.ifd"})});
}

// Several tags at once are several saves, one behind the other.
void MehrereTags(std::vector<Schreiber>& Alle, const Welt& Ohne, const Welt& MitAllen) {
    const std::vector<Befehlszeile> Setzen = {
        {"--v1", "Titel=neu"}, {"--v2", "V2Titel=neu"}, {"--liedertext", "@text"}};
    const std::vector<Befehlszeile> Entfernen = {{"--v1"}, {"--v2"}, {"--lyrics"}};
    constexpr unsigned Jedes = 7;
    for (const bool Weg : {false, true}) {
        const auto Befehl = [&](unsigned Welche) {
            Befehlszeile Ganz = {"--ja", Weg ? "tag-entfernen" : "tag-schreiben"};
            for (unsigned Nummer = 0; Nummer < 3; ++Nummer) {
                if ((Welche >> Nummer & 1U) == 0) continue;
                const Befehlszeile& Worte = (Weg ? Entfernen : Setzen)[Nummer];
                Ganz.insert(Ganz.end(), Worte.begin(), Worte.end());
            }
            Ganz.emplace_back("@a.mp3");
            return Ganz;
        };
        Schreiber Neu{.Name = Weg ? "Tag: alle drei entfernt" : "Tag: alle drei geschrieben",
                      .Anfang = Weg ? MitAllen : Ohne,
                      .Vorbereitung = {},
                      .Befehl = Befehl(Jedes)};
        Neu.AmOrt = true;
        for (unsigned Welche = 1; Welche < Jedes; ++Welche)
            Neu.Teile.push_back(Befehl(Welche));
        Alle.push_back(std::move(Neu));
    }
    const auto Einer = [&](const char* Name, Welt Anfang, Befehlszeile Befehl,
                           std::vector<Befehlszeile> Teile) {
        Schreiber Neu{
            .Name = Name, .Anfang = std::move(Anfang), .Vorbereitung = {}, .Befehl = std::move(Befehl)};
        Neu.AmOrt = true;
        Neu.Teile = std::move(Teile);
        Alle.push_back(std::move(Neu));
    };
    const std::string Format = "%Interpret% - %Titel%";
    const Welt Namen = Mit({{"wer - was.mp3", Datei(Ton())}});
    const auto Aus = [&](const char* Ziel) {
        return Befehlszeile{"autotag", "--format", Format, "--ziel", Ziel, "--schreiben", "@wer - was.mp3"};
    };
    Einer("Tag: aus dem Namen", Namen, Aus("0"), {Aus("1"), Aus("2")});
    Einer("Tag: aufgeräumt", Namen,
          {"--ja", "--setze", "AutoTagAktuell=" + Format, "tag-aufraeumen", "@wer - was.mp3"},
          {Aus("1"), Aus("2")});
    Einer("Tag: Schreibweise", MitAllen,
          {"--ja", "tag-funktion", "Schreibweise: Groß", "Alle ID3v1-TAGs", "@a.mp3"}, {});
}

void TagSchreiber(std::vector<Schreiber>& Alle) {
    const std::string Lang(5000, 'n');
    const Befehlszeile V1Neu = {"tag-schreiben", "--v1", "Titel=neu", "@a.mp3"};
    const Befehlszeile V2Neu = {"tag-schreiben", "--v2", "V2Titel=neu", "@a.mp3"};
    const Befehlszeile V2Lang = {"tag-schreiben", "--v2", "V2Kommentar=" + Lang, "@a.mp3"};
    const Befehlszeile Text2 = {"tag-schreiben", "--liedertext", "@text", "@a.mp3"};
    const auto Weg = [](const char* Welcher) {
        return Befehlszeile{"--ja", "tag-entfernen", Welcher, "@a.mp3"};
    };
    const auto Modern = [](Befehlszeile Befehl) {
        Befehl.insert(Befehl.begin(), {"--setze", "TAGsModern=1"});
        return Befehl;
    };
    const auto MitText = [](std::string Bytes, std::size_t Länge) {
        return Mit({{"a.mp3", Datei(std::move(Bytes))}, {"text", Datei(std::string(Länge, 'm'))}});
    };
    struct Weg2 {
        const char* Name;
        Welt Anfang;
        Befehlszeile Befehl;
        bool AmOrt;
        bool Kurz;
    };
    const std::string Alles = V2() + Ton() + Text() + V1();
    const std::vector<Weg2> Wege = {
        {"ID3v1 angehängt", Lied(V2() + Ton()), V1Neu, true, false},
        {"ID3v1 am Ort", Lied(Alles), V1Neu, true, true},
        {"ID3v1 entfernt", Lied(Alles), Weg("--v1"), false, false},
        {"ID3v2 neu", Lied(Ton() + V1()), V2Neu, false, false},
        {"ID3v2 am Ort", Lied(V2() + Ton()), V2Neu, true, false},
        {"ID3v2 wächst", Lied(V2() + Ton() + V1()), V2Lang, false, true},
        {"ID3v2 schrumpft", Lied(Id3v2Tag(3, Id3v2Textrahmen("TIT2", Lang), 9000) + Ton()), V2Neu, true,
         false},
        {"ID3v2 entfernt", Lied(Alles), Weg("--v2"), false, false},
        {"ID3v2 neu, modern", Lied(Ton() + V1()), Modern(V2Neu), false, false},
        {"ID3v2 am Ort, modern", Lied(V2() + Ton()), Modern(V2Neu), true, false},
        {"ID3v2 wächst, modern", Lied(V2() + Ton() + V1()), Modern(V2Lang), false, false},
        {"ID3v2 entfernt, modern", Lied(Alles), Modern(Weg("--v2")), false, false},
        {"Lyrics angehängt", MitText(Ton(), 50), Text2, true, false},
        {"Lyrics wächst", MitText(Alles, 500), Text2, true, false},
        {"Lyrics schrumpft", MitText(Alles, 20), Text2, false, false},
        {"Lyrics entfernt", Lied(Alles), Weg("--lyrics"), false, false},
    };
    for (const Weg2& Einer : Wege) {
        Schreiber Neu{.Name = std::string("Tag: ") + Einer.Name,
                      .Anfang = Einer.Anfang,
                      .Vorbereitung = {},
                      .Befehl = Einer.Befehl};
        Neu.AmOrt = Einer.AmOrt;
        Neu.Kurz = Einer.Kurz;
        Alle.push_back(Neu);
        if (!Neu.Anfang.contains("a.mp3") || Neu.AmOrt) continue;
        Neu.Name += ", zwei Namen";
        Neu.Kurz = false;
        Neu.MehrereNamen = true;
        Neu.Anfang.insert({"z.mp3", {'f', Neu.Anfang["a.mp3"].Inhalt, "a.mp3", Früher, 0644}});
        Alle.push_back(std::move(Neu));
    }
    MehrereTags(Alle, MitText(Ton(), 50), MitText(Alles, 50));
    // The record is filled by a first save; a second one that fails leaves it alone.
    Alle.push_back({"Tag: mit Indexsatz",
                    Sammlung(),
                    {Hinzu, ImIndex({"tag-schreiben", "--v2", "V2Titel=x", "@musik/a.mp3"})},
                    ImIndex({"tag-schreiben", "--v2", "V2Kommentar=" + Lang, "@musik/a.mp3"})});
    // The record of a file that has grown is known better by its next reading.
    Alle.back().Wiederholbar = false;
    Alle.back().Erneut = true;
}

void ListenSchreiber(std::vector<Schreiber>& Alle) {
    for (const std::string Format : {"text", "html", "playliste", "tabelle", "m3u8", "json"}) {
        for (const bool Vorhanden : {false, true}) {
            Schreiber Neu{.Name = "Export: " + Format + (Vorhanden ? ", vorhanden" : ""),
                          .Anfang = Sammlung(),
                          .Vorbereitung = {Hinzu},
                          .Befehl = ImIndex({"export", "--format", Format, "@ziel." + Format})};
            if (Vorhanden) Neu.Anfang.insert({"ziel." + Format, Datei("die Liste von früher")});
            Alle.push_back(std::move(Neu));
        }
    }
    Alle.push_back(
        {"Übergabeliste",
         Sammlung({{"spieler", Ordner}, {"spieler/true", {'f', "#!/bin/true\n", {}, Früher, 0755}}}),
         {Hinzu},
         ImIndex({"--setze", "AbspielStatistikSpeichern=0", "--setze", "WinampPfad=@spieler/true",
                  "abspielen", "1", "2"})});
    Alle.back().Nebensachen = {"spieler/liedwerk.m3u"};
    Alle.back().Ausweichend = true;
}

void DateiSchreiber(std::vector<Schreiber>& Alle) {
    const std::vector<Befehlszeile> MitIndex = {Hinzu};
    const auto Einmal = [&](const char* Name, Befehlszeile Befehl, Welt Anfang, bool Grenze = false) {
        Schreiber Neu{.Name = Name,
                      .Anfang = std::move(Anfang),
                      .Vorbereitung = MitIndex,
                      .Befehl = ImIndex(std::move(Befehl))};
        Neu.Wiederholbar = false;
        Neu.Grenze = Grenze;
        Alle.push_back(std::move(Neu));
    };
    const Welt Ziel = Sammlung({{"fern", Ordner}});
    const Welt Belegt = Sammlung({{"fern", Ordner}, {"fern/a.mp3", Datei("eine andere Datei")}});
    Einmal("Umbenennen", {"umbenennen", "--format", "%Interpret% - %Titel%", "@musik/b.mp3"}, Sammlung());
    Einmal("Umbenennen in neue Ordner", {"umbenennen", "--format", "%Interpret%/%Titel%", "@musik/b.mp3"},
           Sammlung());
    Einmal("Verschieben", {"kopieren", "--verschieben", "--ziel", "@fern", "1"}, Ziel);
    Einmal("Verschieben, anderes Dateisystem", {"kopieren", "--verschieben", "--ziel", "@fern", "1"}, Ziel,
           true);
    Alle.back().Kurz = true;
    Einmal("Verschieben über eine Datei",
           {"kopieren", "--verschieben", "--ersetzen", "2", "--ziel", "@fern", "1"}, Belegt);
    Einmal("Verschieben über eine Datei, anderes Dateisystem",
           {"kopieren", "--verschieben", "--ersetzen", "2", "--ziel", "@fern", "1"}, Belegt, true);
    Einmal("Löschen", {"!loeschen"}, Sammlung());
    Einmal("Papierkorb", {"!papierkorb"}, Sammlung());
    Alle.back().Kurz = true;
    const auto Kopie = [&](const char* Name, Befehlszeile Befehl, const Welt& Anfang) {
        Alle.push_back({Name, Anfang, MitIndex, ImIndex(std::move(Befehl))});
    };
    Kopie("Kopieren", {"kopieren", "--ziel", "@fern", "--ersetzen", "2", "1"}, Ziel);
    Kopie("Kopieren mit Ordnern", {"kopieren", "--struktur", "--ersetzen", "2", "--ziel", "@neu", "1", "2"},
          Sammlung());
    Kopie("Kopieren über eine Datei", {"kopieren", "--ersetzen", "2", "--ziel", "@fern", "1"}, Belegt);
    Welt MitKopie = Sammlung();
    Alle.push_back({"Sicherungskopie zurückgeholt",
                    MitKopie,
                    {Hinzu, ImIndex({"--setze", "BackupsSpeichern=1", "sortieren", "--absteigend", "Titel"})},
                    {"!wiederherstellen"}});
    Alle.back().Kurz = true;
    Alle.back().Wiederholbar = false;
    const Welt Disc =
        Sammlung({{"prog/CDDB", Ordner}, {"prog/CDDB/0a0b0c0d.dat", Datei("lwifcddb1\r\nalt\r\n")}});
    Alle.push_back({"CD-Cache: neu", Sammlung(), MitIndex, {"!cd-merken"}});
    Alle.push_back({"CD-Cache: ersetzt", Disc, MitIndex, {"!cd-merken"}});
    Alle.push_back({"Einstellungen: neue Datei", Sammlung(), MitIndex,
                    ImIndex({"--einstellungen", "@neu/e.conf", "index-info"})});
    Alle.push_back({"Einstellungen: geändert", Sammlung(), MitIndex, {"!einstellen"}});
}

}  // namespace

const std::vector<Schreiber>& AlleSchreiber() {
    static const std::vector<Schreiber> Alle = [] {
        std::vector<Schreiber> Neue;
        IndexSchreiber(Neue);
        TagSchreiber(Neue);
        ListenSchreiber(Neue);
        DateiSchreiber(Neue);
        return Neue;
    }();
    return Alle;
}

Befehlszeile MitJa(Befehlszeile Befehl) {
    if (!Befehl.front().starts_with('!')) Befehl.insert(Befehl.begin(), "--ja");
    return Befehl;
}

bool HatTon(std::string_view Bytes) {
    return Bytes.find(Ton()) != std::string_view::npos;
}

Befehlszeile Aufruf(const Orte& Wo, const Befehlszeile& Befehl) {
    if (Befehl.front().starts_with('!')) return {Wo.Handgriffe, Wo.Welt, Befehl.front().substr(1)};
    Befehlszeile Ganz = {Wo.Generator};
    const bool Erzeugt = Befehl.front() == "#";
    if (!Erzeugt)
        Ganz = {Wo.Programm,         "--programmordner", Wo.Welt + "/prog",     "--einstellungen",
                Wo.Welt + "/e.conf", "--jetzt",          "21.11.2026 12:00:00", "--still"};
    for (const std::string& Wort : std::span(Befehl).subspan(Erzeugt ? 1 : 0)) {
        const std::size_t Stelle = Wort.starts_with('@') ? 0 : Wort.find("=@");
        if (Stelle == std::string::npos) {
            Ganz.push_back(Wort);
        } else {
            const std::size_t Zeichen = Wort.starts_with('@') ? 0 : Stelle + 1;
            Ganz.push_back(Wort.substr(0, Zeichen) + Wo.Welt + "/" + Wort.substr(Zeichen + 1));
        }
    }
    return Ganz;
}

}  // namespace liedwerk::haerte
