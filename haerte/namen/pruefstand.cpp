#include "haerte/namen/pruefstand.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <utility>

#include "haerte/namen/urteil.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;
using namespace tagbau;

constexpr std::int64_t Früher = 1'600'000'000;
const Eintrag Ordner{'d', {}, {}, 0, 0755};

Eintrag Datei(std::string Inhalt) {
    return {'f', std::move(Inhalt), {}, Früher, 0644};
}

bool HatUmbruch(const std::string& Name) {
    return Name.find_first_of("\r\n") != std::string::npos;
}

// Bytes that no other file has and that look like no tag.
std::string Ton(std::size_t Nummer) {
    std::string Bytes;
    auto Zahl = static_cast<std::uint32_t>(Nummer + 1);
    for (int Mal = 0; Mal < 64; ++Mal)
        Bytes += static_cast<char>(0x80U | ((Zahl = Zahl * 1664525U + 1013904223U) >> 26U));
    return Bytes;
}

const std::string& WertNach(std::size_t Nummer) {
    return BöseWerte()[Nummer % BöseWerte().size()].Bytes;
}

std::string MpegMitTags(std::size_t Nummer) {
    std::string Rahmen;
    const char* const Kennungen[] = {"TIT2", "TPE1", "TALB", "TCON", "TPUB", "TCOP"};
    for (std::size_t i = 0; i < std::size(Kennungen); ++i)
        Rahmen += Id3v2Rahmen(Kennungen[i], std::string(1, '\0') + WertNach(Nummer + i));
    Rahmen += Id3v2Rahmen("COMM", std::string("\0deu\0", 5) + WertNach(Nummer + 3));
    Id3v1Angaben Erster;
    Erster.Titel = WertNach(Nummer).substr(0, 30);
    Erster.Interpret = WertNach(Nummer + 1).substr(0, 30);
    Erster.Album = WertNach(Nummer + 2).substr(0, 30);
    Erster.Kommentar = WertNach(Nummer + 3).substr(0, 30);
    return Id3v2Tag(3, Rahmen, 200) + MpegRahmen({}, 2) + Ton(Nummer) + MpegRahmen({}, 3) +
           LyricsV2(LyricsFeld("LYR", WertNach(Nummer + 4))) + Id3v1Block(Erster);
}

std::string OggMitTags(std::size_t Nummer) {
    return OggDatei({"TITLE=" + WertNach(Nummer), "ARTIST=" + WertNach(Nummer + 1),
                     "ALBUM=" + WertNach(Nummer + 2), "COMMENT=" + WertNach(Nummer + 3)}) +
           Ton(Nummer);
}

// The name with its escapes undone.
std::string Klartext(const std::string& Notiz) {
    std::string Text;
    for (std::size_t i = 0; i < Notiz.size(); ++i) {
        unsigned Zahl = 0;
        if (Notiz[i] == '\\' && i + 3 < Notiz.size()) {
            std::from_chars(&Notiz[i + 2], &Notiz[i + 2] + 2, Zahl, 16);
            Text += static_cast<char>(Zahl);
            i += 3;
        } else {
            Text += Notiz[i];
        }
    }
    return Text;
}

std::string Sichtbar(const Worte& Ganz) {
    std::string Text;
    for (const std::string& Wort : Ganz) {
        std::string Eines = Wort.substr(0, 80);
        std::ranges::replace_if(
            Eines, [](char Z) { return static_cast<unsigned char>(Z) < 0x20 || Z == 0x7F; }, '?');
        Text += " [" + Eines + "]";
    }
    return Text;
}

Welt Teil(const Welt& Ganze, const Worte& Ausnahmen) {
    Welt Gezeigte;
    for (const auto& [Name, Stand] : Ganze) {
        const std::string Erster = Name.substr(0, Name.find('/'));
        const bool Eigene = Erster == "heim" || Erster == "prog" || Erster == "aus" ||
                            Erster.starts_with("e.conf") || Erster.starts_with("i.lwi");
        if (!Eigene && std::ranges::find(Ausnahmen, Erster) == Ausnahmen.end()) Gezeigte.emplace(Name, Stand);
    }
    return Gezeigte;
}

}  // namespace

Prüfstand::Prüfstand(const Orte& Alles, Bericht& Ziel, std::size_t JederWievielte)
    : Wo(Alles), Wohin(Ziel), Jeder(JederWievielte) {
    Welt Grund = {{"prog", Ordner},  {"heim", Ordner}, {"heim/lauf", Ordner}, {"aus", Ordner},
                  {"musik", Ordner}, {"ziel", Ordner}, {"spieler", Ordner},   {"e.conf", Datei("")}};
    Grund.at("heim/lauf").Rechte = 0700;
    std::size_t Nummer = 0;
    const auto Aufnehmen = [&](const std::string& Name, std::string Inhalt) {
        Grund.emplace(Name, Datei(std::move(Inhalt)));
        Alle.push_back(Pfad(Name));
        if (!HatUmbruch(Name)) ImIndex.push_back(Pfad(Name));
        Töne.push_back(Ton(Nummer++));
    };
    for (const auto& [Was, Name] : BöseNamen())
        Aufnehmen("musik/" + Name + ".mp3", MpegMitTags(Nummer));
    for (const auto& [Was, Name] : BöseNamen()) {
        Grund.emplace("musik/" + Name, Ordner);
        Aufnehmen("musik/" + Name + "/o.ogg", OggMitTags(Nummer));
    }
    MitIndex = Grund;
    Zurück();
    Wohin.FallBeginnen("Hinzufügen");
    const auto Lauf = Befehl({"hinzufuegen", Pfad("musik")});
    Prüfen(Anzahl(Inhalt("i.lwi"), "\n#TAG:") == ImIndex.size(), "Sätze im Index: " + Lauf.Ausgabe);
    Json({"hinzufuegen", Pfad("musik")});
    Prüfen(Anzahl(Inhalt("i.lwi"), "\n#TAG:") == ImIndex.size(), "Sätze nach dem zweiten Mal");
    Wohin.FallBeenden();
    MitIndex = WeltAufnehmen(Wo.Welt);
}

Worte Prüfstand::Anfang() const {
    return {Wo.Programm,           "--programmordner", Pfad("prog"),
            "--einstellungen",     Pfad("e.conf"),     "--jetzt",
            "21.11.2026 12:00:00", "--still",          "--ja"};
}

Laufergebnis Prüfstand::Befehl(const Worte& Was, const Erlaubnis& Darf) const {
    Worte Ganz = Anfang();
    if (std::ranges::find(Was, "--index") == Was.end()) Ganz.insert(Ganz.end(), {"--index", Pfad("i.lwi")});
    Ganz.insert(Ganz.end(), Was.begin(), Was.end());
    return Ausführen(Ganz, Darf, false);
}

std::size_t Prüfstand::Json(const Worte& Was, const Erlaubnis& Darf) const {
    Worte Ganz = Anfang();
    Ganz.insert(Ganz.end(), {"--json", "--index", Pfad("i.lwi")});
    Ganz.insert(Ganz.end(), Was.begin(), Was.end());
    const auto Lauf = Ausführen(Ganz, Darf, true);
    return JsonEinträge(Lauf.Ausgabe).value_or(0);
}

Laufergebnis Prüfstand::Handgriff(const std::string& Name, const Erlaubnis& Darf) const {
    return Ausführen({Wo.Handgriffe, Wo.Welt, Name}, Darf, false);
}

Laufergebnis Prüfstand::Programm(const Worte& Ganz, const Erlaubnis& Darf) const {
    return Ausführen(Ganz, Darf, false);
}

Laufergebnis Prüfstand::Ausführen(const Worte& Ganz, const Erlaubnis& Darf, bool JsonAusgabe) const {
    const Welt Vorher = Teil(WeltAufnehmen(Wo.Welt), Darf.Ordner);
    auto Lauf = Laufen(Wo, Ganz);
    Benutzte.insert(Ganz.begin(), Ganz.end());
    Wohin.Eingriff();
    Urteilen(Lauf, Ganz, Darf, Vorher, JsonAusgabe);
    return Lauf;
}

void Prüfstand::RufPrüfen(const Rufzeile& Ruf, const Erlaubnis& Darf) const {
    const std::string Ziel = Klartext(Ruf.Pfad);
    if (Ruf.Name == "start") {
        Prüfen(std::ranges::find(Darf.Programme, Ziel) != Darf.Programme.end(), "gestartet: " + Ruf.Pfad);
    } else if (Ruf.Name == "shell") {
        Bruch("Shell: " + Ruf.Pfad);
    } else if (Ruf.Name == "bind" || Ruf.Name == "listen" || Ruf.Name == "connect") {
        const bool Lokal = Ruf.Name == "connect" || (Ruf.Name == "bind" && Darf.Sperrname);
        const bool Erlaubt =
            Ruf.Pfad == "unix" ? Lokal : Ruf.Name == "connect" && Darf.Netz && Ruf.Pfad == "inet 127.0.0.1";
        Prüfen(Erlaubt, Ruf.Name + ": " + Ruf.Pfad);
    } else {
        Worte Erlaubte = {"prog", "heim", "aus"};
        Erlaubte.insert(Erlaubte.end(), Darf.Ordner.begin(), Darf.Ordner.end());
        for (const std::string& Einer : {Ruf.Pfad, Ruf.Neu}) {
            const bool Drin = std::ranges::any_of(Erlaubte, [&](const std::string& Name) {
                return Einer == Pfad(Name) || Einer.starts_with(Pfad(Name) + "/");
            });
            // Helper files of index and settings lie beside them.
            const bool Eigene = Einer.starts_with(Pfad("i.lwi")) || Einer.starts_with(Pfad("e.conf")) ||
                                Einer.starts_with(Wo.Ablage + "/") || Einer == Wo.Welt ||
                                Einer == "/dev/null";
            const bool Innen = Eigene && Einer.find('/', Wo.Welt.size() + 1) == std::string::npos;
            Prüfen(Einer.empty() || Drin || Innen || Einer == "/dev/null", Ruf.Name + " außerhalb: " + Einer);
        }
    }
}

void Prüfstand::RufePrüfen(const Laufergebnis& Lauf, const Erlaubnis& Darf) const {
    for (const Rufzeile& Ruf : Lauf.Rufe)
        RufPrüfen(Ruf, Darf);
}

void Prüfstand::Urteilen(const Laufergebnis& Lauf, const Worte& Ganz, const Erlaubnis& Darf,
                         const Welt& Vorher, bool JsonAusgabe) const {
    const auto Sagen = [&](const std::string& Was) {
        Bruch(Was + ":" + Sichtbar({Ganz.begin() + 1, Ganz.end()}));
    };
    if (Lauf.Hängt) Sagen("hängt");
    if (Lauf.Signal != 0) Sagen("Signal " + std::to_string(Lauf.Signal));
    const int Höchster = Darf.AuchFalsch ? 2 : 1;
    if (Lauf.Status < 0 || Lauf.Status > Höchster)
        Sagen("Status " + std::to_string(Lauf.Status) + " " + Lauf.Meldungen);
    if (Lauf.Status > 0 && Lauf.Meldungen.empty()) Sagen("gescheitert ohne Meldung");
    if (const std::string Fehler = Terminalbefehl(Lauf.Meldungen); !Fehler.empty())
        Sagen("Meldung: " + Fehler);
    if (const std::string Fehler = Terminalbefehl(Lauf.Ausgabe); !Fehler.empty()) Sagen("Ausgabe: " + Fehler);
    if (JsonAusgabe && Lauf.Gelungen() && !JsonEinträge(Lauf.Ausgabe)) Sagen("kein JSON");
    RufePrüfen(Lauf, Darf);
    if (Teil(WeltAufnehmen(Wo.Welt), Darf.Ordner) != Vorher) Sagen("Dateien verändert");
}

void Prüfstand::VollständigkeitPrüfen() const {
    Wohin.FallBeginnen("jeder Befehl");
    std::string Hilfe = Programm({Wo.Programm, "--hilfe"}, {}).Ausgabe;
    Hilfe.erase(0, Hilfe.find("\nBefehle:\n"));
    int Befehle = 0;
    for (const std::string& Zeile : Zeilen(Hilfe)) {
        if (!Zeile.starts_with("  ")) continue;
        const std::string Name = Zeile.substr(2, Zeile.find(' ', 2) - 2);
        ++Befehle;
        Prüfen(Benutzte.contains(Name), "nicht versucht: " + Name);
    }
    Prüfen(Befehle > 0, "keine Befehle in der Hilfe");
    Wohin.FallBeenden();
}

std::string Prüfstand::Inhalt(const std::string& Name) const {
    std::ifstream Quelle(Pfad(Name), std::ios::binary);
    return {std::istreambuf_iterator<char>(Quelle), {}};
}

void Prüfstand::Schreiben(const std::string& Name, const std::string& Inhalt) const {
    fs::create_directories(fs::path(Pfad(Name)).parent_path());
    std::ofstream(Pfad(Name), std::ios::binary) << Inhalt;
}

void Prüfstand::Leeren(const std::string& Name) const {
    fs::remove_all(Pfad(Name));
}

std::string Prüfstand::Attrappe(const std::string& Name) const {
    fs::create_directories(fs::path(Pfad(Name)).parent_path());
    fs::copy_file(Wo.Generator, Pfad(Name), fs::copy_options::overwrite_existing);
    return Pfad(Name);
}

std::vector<Worte> Prüfstand::Aufrufe(const std::string& Name, std::size_t Erwartet) const {
    // It runs on its own and may write later than the program ends.
    for (int Mal = 0; Mal < 400 && Anzahl(Inhalt(Name + ".worte"), "ende\n") < Erwartet; ++Mal)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const std::string Text = Inhalt(Name + ".worte");
    std::vector<Worte> Gesammelte;
    Worte Gelesene;
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        if (Text.compare(Stelle, 5, "ende\n") == 0) {
            Gesammelte.push_back(std::exchange(Gelesene, {}));
            Stelle += 5;
            continue;
        }
        std::size_t Länge = 0;
        const char* const Ziffern = Text.data() + Stelle;
        const char* const Ende = std::from_chars(Ziffern, Text.data() + Text.size(), Länge).ptr;
        Stelle += static_cast<std::size_t>(Ende - Ziffern) + 1;
        Gelesene.push_back(Text.substr(Stelle, Länge));
        Stelle += Länge + 1;
    }
    return Gesammelte;
}

std::vector<BöserName> Prüfstand::Namen() const {
    std::vector<BöserName> Gewählte;
    for (std::size_t i = 0; i < BöseNamen().size(); i += Jeder)
        Gewählte.push_back(BöseNamen()[i]);
    return Gewählte;
}

std::vector<BöserName> Prüfstand::Werte() const {
    std::vector<BöserName> Gewählte;
    for (std::size_t i = 0; i < BöseWerte().size(); i += Jeder)
        if (BöseWerte()[i].Bytes.find('\0') == std::string::npos) Gewählte.push_back(BöseWerte()[i]);
    return Gewählte;
}

void Prüfstand::TönePrüfen(const Worte& Ordner) const {
    std::string Bytes;
    for (const auto& [Name, Stand] : WeltAufnehmen(Wo.Welt))
        if (std::ranges::find(Ordner, Name.substr(0, Name.find('/'))) != Ordner.end()) Bytes += Stand.Inhalt;
    for (std::size_t i = 0; i < Töne.size(); ++i)
        Prüfen(Anzahl(Bytes, Töne[i]) == 1, "Ton von Datei " + std::to_string(i) + " " +
                                                std::to_string(Anzahl(Bytes, Töne[i])) + "-mal da");
}

}  // namespace liedwerk::haerte
