// What an interrupted save of tags left behind: marks, helper files, the torn file.
#include <filesystem>

#include "basis/datei.h"
#include "basis/text.h"
#include "fuzz/ziel.h"
#include "medien/tagrettung.h"
#include "medien/tagumschreiben.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Opferinhalt = "Das gehört jemand anderem.";

// The bits of an input's first byte.
struct Lage {
    explicit Lage(unsigned Bits)
        : MitZweitemNamen((Bits & 1U) != 0),
          GleicheZeit((Bits & 2U) != 0),
          AntwortJa((Bits & 4U) != 0),
          Verweis((Bits & 8U) != 0),
          Fehlt((Bits & 16U) != 0),
          NurMelden((Bits & 32U) != 0) {}
    bool MitZweitemNamen;  // the file is torn for sure only then
    bool GleicheZeit;
    bool AntwortJa;
    bool Verweis;  // the helper file is a link to a stranger's file
    bool Fehlt;
    bool NurMelden;  // the start asks nothing
};

}  // namespace

void RettungPrüfen(std::string_view Eingabe) {
    if (Eingabe.empty()) return;
    const Lage Gegeben(static_cast<unsigned char>(Eingabe.front()));
    const auto Teile = Stücke(Eingabe.substr(1), 3);
    const std::string Ordner = Ablage() + "/rettung";
    fs::remove_all(Ordner);
    fs::create_directory(Ordner);
    const std::string Opfer = DateiLegen("rettung/opfer", Opferinhalt);
    const std::string Datei = DateiLegen("rettung/x.mp3", Teile[1]);
    const std::string Gesichert = TagGesichertname(Datei);
    const std::uint64_t Inode = DateistandLesen(Datei)->Inode;
    if (Gegeben.Verweis) {
        fs::create_symlink(Opfer, Gesichert);
    } else {
        DateiLegen("rettung/" + fs::path(Gesichert).filename().string(), Teile[2]);
    }
    DateiLegen("rettung/" + fs::path(TagTemporärname(Datei)).filename().string(), Teile[2]);
    if (Gegeben.MitZweitemNamen) fs::create_hard_link(Datei, Ordner + "/y.mp3");
    const auto Zeit = fs::last_write_time(Datei);
    fs::last_write_time(Gesichert, Gegeben.GleicheZeit ? Zeit : Zeit - std::chrono::hours(1));
    // In a mark "@" stands for the file and "#" for its inode: nobody guesses either.
    DateiLegen("rettung/" + SchreibmarkeName(Datei),
               Ersetzen(Ersetzen(Teile[0], "@", Datei), "#", std::to_string(Inode)));
    if (Gegeben.Fehlt) fs::remove(Datei);

    speicher::Person Person;
    if (Gegeben.AntwortJa) Person.Antworten.assign(8, Antwort::Ja);
    const speicher::StehendeUhr Uhr;
    Rettung Lauf{Uhr};
    if (Gegeben.NurMelden) Lauf.Regel = Zweifelsfall::Melden;
    UnterbrocheneVollenden(Ordner, Systemordnerleser(), Person, Lauf, {});
    SpeichernVollenden(Datei, Person, Lauf, {});
    DateiZurückholen(Datei, Person, Lauf, {});

    Gleich("Fremde Dateien bleiben", Opferinhalt, DateiInhalt(Opfer));
    if (!DateiExistiert(Datei)) return;
    const std::string Danach = DateiInhalt(Datei);
    if (Danach != Teile[1]) Gleich("Die Datei ist die alte oder die neue", Teile[2], Danach);
    if ((!Gegeben.AntwortJa || Gegeben.NurMelden) && !(Gegeben.MitZweitemNamen && Gegeben.GleicheZeit) &&
        !Gegeben.Fehlt)
        Gleich("Ungefragt wird nur Zerrissenes ersetzt", Teile[1], Danach);
}

}  // namespace liedwerk::fuzz
