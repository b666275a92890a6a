#include "haerte/stoerung/pruefung.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <random>
#include <stdexcept>

#include "haerte/stoerung/reihenfolge.h"

namespace liedwerk::haerte {
namespace {

struct Eingriffsart {
    std::string Name;
    std::string Art;
    bool Immer;
    bool Kurz;           // belongs to the short run
    bool NurSchreibend;  // says something of writes only
};

const std::vector<Eingriffsart>& Arten() {
    static const std::vector<Eingriffsart> Alle = {
        {"ENOSPC", std::to_string(ENOSPC), false, false, false},
        {"ENOSPC von da an", std::to_string(ENOSPC), true, true, false},
        {"EIO", std::to_string(EIO), false, true, false},
        {"EIO von da an", std::to_string(EIO), true, false, false},
        {"EDQUOT", std::to_string(EDQUOT), false, false, false},
        {"EDQUOT von da an", std::to_string(EDQUOT), true, false, false},
        {"EROFS", std::to_string(EROFS), false, false, false},
        {"EROFS von da an", std::to_string(EROFS), true, false, false},
        {"halb geschrieben", "halb", false, false, true},
        {"halb geschrieben, dann voll", "halbvoll", true, true, true},
        {"getötet davor", "tot", false, true, false},
        {"getötet danach", "totdanach", false, false, false},
        {"getötet mitten darin", "tothalb", false, true, true},
    };
    return Alle;
}

bool Schreibt(const Rufzeile& Ruf) {
    return Ruf.Name.find("write") != std::string::npos;
}

// The person has been told of the file; the mark of a told interruption is the program's own.
bool Angesagt(const Laufergebnis& Lauf, const std::string& Name) {
    return Lauf.Meldungen.find(Name.ends_with(".lwimerk") ? "~lwineu" : Name) != std::string::npos;
}

// A write in place that failed half-way and could not be taken back: the person knows, the sound is whole.
bool BeschädigungAngesagt(const Laufergebnis& Lauf, const Welt& Jetzt) {
    return Lauf.Status > 0 && Lauf.Meldungen.find("kann beschädigt sein") != std::string::npos &&
           std::ranges::any_of(Jetzt, [](const auto& Eine) { return HatTon(Eine.second.Inhalt); });
}

std::string Rufname(const Laufergebnis& Lauf, long Ruf, const std::string& Ordner) {
    const auto Stelle = static_cast<std::size_t>(Ruf - 1);
    if (Ruf < 1 || Stelle >= Lauf.Rufe.size()) return "Ruf " + std::to_string(Ruf);
    std::string Pfad = Lauf.Rufe[Stelle].Pfad;
    if (Pfad.starts_with(Ordner)) Pfad.erase(0, std::min(Pfad.size(), Ordner.size() + 1));
    return "Ruf " + std::to_string(Ruf) + " (" + Lauf.Rufe[Stelle].Name + " " + Pfad + ")";
}

}  // namespace

Prüfung::Prüfung(const Orte& Alle, const Schreiber& Einer, Bericht& Ziel)
    : Wo(Alle), Wer(Einer), Wohin(Ziel) {
    WeltHerstellen(Wo.Welt, Wer.Anfang);
    for (const Befehlszeile& Befehl : Wer.Vorbereitung) {
        const auto Lauf = Laufen(Wo, Aufruf(Wo, Befehl));
        if (!Lauf.Gelungen()) throw std::runtime_error(Wer.Name + ", Vorbereitung: " + Lauf.Meldungen);
    }
    // What is put back has whole seconds as its times; so has what the comparison begins with.
    WeltHerstellen(Wo.Welt, WeltAufnehmen(Wo.Welt));
    Vorher = WeltAufnehmen(Wo.Welt);
    for (const Befehlszeile& Befehl : Wer.Teile) {
        WeltHerstellen(Wo.Welt, Vorher);
        if (Laufen(Wo, Aufruf(Wo, Befehl)).Gelungen()) Zwischen.push_back(WeltAufnehmen(Wo.Welt));
    }
    for (int Mal = 1; Mal <= 2; ++Mal) {
        WeltHerstellen(Wo.Welt, Vorher);
        Ungestört = Laufen(Wo, Aufruf(Wo, Wer.Befehl), Grundstörung());
        if (!Ungestört.Gelungen()) throw std::runtime_error(Wer.Name + ": " + Ungestört.Meldungen);
        const Welt Jetzt = WeltAufnehmen(Wo.Welt);
        if (Mal == 1) Nachher = Jetzt;
        if (!IstErgebnis(Grund(), Jetzt))
            throw std::runtime_error(Wer.Name + ": zwei Läufe, zwei Ergebnisse");
    }
    if (!Wer.Erneut) return;
    Laufen(Wo, Aufruf(Wo, MitJa(Wer.Befehl)), Grundstörung());
    Zwischen.push_back(WeltAufnehmen(Wo.Welt));
}

Störung Prüfung::Grundstörung() const {
    Störung Wie;
    if (Wer.Grenze) Wie.Grenze = Wo.Welt + "/fern";
    return Wie;
}

void Prüfung::JederRuf(bool Alle) {
    for (const Eingriffsart& Art : Arten()) {
        if (!Alle && !Art.Kurz) continue;
        Störung Wie = Grundstörung();
        Wie.Art = Art.Art;
        Wie.Immer = Art.Immer;
        for (Wie.Ruf = 1;; ++Wie.Ruf) {
            const auto Stelle = static_cast<std::size_t>(Wie.Ruf - 1);
            // Up to the disturbed call the run is the undisturbed one.
            if (Stelle >= Ungestört.Rufe.size()) break;
            const Rufzeile& Ruf = Ungestört.Rufe[Stelle];
            if (Art.NurSchreibend && !Schreibt(Ruf)) continue;
            // One write in place is as much in one piece as the system makes it.
            if (Art.Art == "tothalb" && Wer.AmOrt && Ruf.Name == "pwrite") continue;
            WeltHerstellen(Wo.Welt, Vorher);
            const auto Lauf = Laufen(Wo, Aufruf(Wo, Wer.Befehl), Wie);
            Urteilen(Lauf, Art.Name + " bei " + Rufname(Ungestört, Wie.Ruf, Wo.Welt));
        }
    }
}

void Prüfung::ZufälligTöten(std::uint64_t Saat) {
    std::mt19937_64 Zufall(Saat);
    Störung Wie = Grundstörung();
    Wie.Pause = 2000;
    Wie.Saat = Zufall();
    // Starting takes some milliseconds, each call one on average.
    const auto Dauer = 12'000 + 1'200 * static_cast<std::int64_t>(Ungestört.Rufe.size());
    Wie.TötenNach = std::uniform_int_distribution<std::int64_t>(3'000, Dauer)(Zufall);
    WeltHerstellen(Wo.Welt, Vorher);
    Urteilen(Laufen(Wo, Aufruf(Wo, Wer.Befehl), Wie), "getötet, Saat " + std::to_string(Saat));
}

void Prüfung::Ungestörtes() const {
    Wohin.Eingriff();
    const auto Töne = [](const Welt& Eine) {
        return std::ranges::count_if(Eine, [](const auto& Datei) { return HatTon(Datei.second.Inhalt); });
    };
    if (Töne(Nachher) < Töne(Vorher)) Wohin.Bruch("der Ton ist nicht mehr derselbe");
    if (Wer.Wiederholbar) {
        WeltHerstellen(Wo.Welt, Nachher);
        Laufen(Wo, Aufruf(Wo, MitJa(Wer.Befehl)), Grundstörung());
        if (!IstErgebnis(Grund(), WeltAufnehmen(Wo.Welt))) Wohin.Bruch("ein zweites Mal ändert etwas");
    }
    for (const std::string& Fund : ReihenfolgeBeurteilen(Wo.Welt, Wer, Grund(), Ungestört.Rufe))
        Wohin.Bruch(Fund);
}

void Prüfung::BeiVollerPlatte(int Stufe, const std::function<void(std::int64_t)>& Füllen) {
    std::int64_t Bedarf = 1 << 18U;
    for (const auto& [Name, Stand] : Nachher)
        if (!Vorher.contains(Name) || Vorher.at(Name).Inhalt != Stand.Inhalt)
            Bedarf += static_cast<std::int64_t>(Stand.Inhalt.size());
    Füllen(-1);
    WeltHerstellen(Wo.Welt, Vorher);
    Füllen(Bedarf * Stufe / 35);
    const auto Lauf = Laufen(Wo, Aufruf(Wo, Wer.Befehl), Grundstörung());
    // The next start has room again; what the judge sees of this run it has looked at before.
    Füllen(-1);
    Urteilen(Lauf, "volle Platte, Stufe " + std::to_string(Stufe));
}

bool Prüfung::Verweigert(const Laufergebnis& Lauf, const std::string& Name) const {
    const std::string Pfad = Wo.Welt + "/" + Name;
    return std::ranges::any_of(Lauf.Rufe, [&](const Rufzeile& Ruf) {
        const bool Entfernt = Ruf.Name == "unlink" || Ruf.Name == "rmdir" || Ruf.Name.starts_with("rename");
        return Entfernt && Ruf.Ergebnis < 0 && Ruf.Pfad == Pfad;
    });
}

void Prüfung::Urteilen(const Laufergebnis& Lauf, const std::string& Wie) {
    Wohin.Eingriff();

    const Welt Jetzt = WeltAufnehmen(Wo.Welt);
    const bool Getötet = Lauf.Signal == SIGKILL && !Lauf.Hängt;
    // A file with several names is whole again only once the interrupted save is finished.
    if (!Wer.MehrereNamen && !(Wer.AmOrt && BeschädigungAngesagt(Lauf, Jetzt)))
        for (const std::string& Fund : Beurteilen(Grund(), Jetzt, Lauf))
            Wohin.Bruch(Wie + ": " + Fund);
    const auto Rest = Übrige(Grund(), Jetzt);
    if (!Getötet)
        for (const std::string& Name : Rest)
            if (!Verweigert(Lauf, Name) && !Angesagt(Lauf, Name))
                Wohin.Bruch(Wie + ": Hilfsdatei bleibt: " + Name);
    if (Getötet || !Rest.empty() || Wer.MehrereNamen) Fortsetzen(Lauf, Wie);
}

void Prüfung::Fortsetzen(const Laufergebnis& Lauf, const std::string& Wie) {
    const Befehlszeile Ansehen = {"--index", "@i.lwi", "index-info"};
    const bool Nochmals = Wer.Wiederholbar;
    // What was interrupted is made again.
    if (Wer.Grenze || Wer.Erneut) Laufen(Wo, Aufruf(Wo, MitJa(Wer.Befehl)), Grundstörung());
    const Befehlszeile Nächster = MitJa(Nochmals ? Wer.Befehl : Ansehen);
    auto Danach = Laufen(Wo, Aufruf(Wo, Nächster), Grundstörung());
    // Which content is the right one only the person can say, and only in the window.
    if (Wer.MehrereNamen && !Danach.Gelungen() &&
        Danach.Meldungen.find("welcher Inhalt gilt") != std::string::npos) {
        if (!Laufen(Wo, Aufruf(Wo, {"!retten"}), Grundstörung()).Gelungen())
            Wohin.Bruch(Wie + ": nicht gerettet");
        Danach = Laufen(Wo, Aufruf(Wo, Nächster), Grundstörung());
    }
    const Welt Jetzt = WeltAufnehmen(Wo.Welt);
    const std::string Später = Wie + ", nächster Start: ";
    // A tag that is gone cannot be removed again.
    const bool Fertig = Nochmals && IstErgebnis(Grund(), Jetzt);
    if (!Danach.Gelungen() && !Fertig) Wohin.Bruch(Später + "scheitert: " + Danach.Meldungen);
    if (Nochmals && !Fertig && Übrige(Grund(), Jetzt).empty()) Wohin.Bruch(Später + "anderes Ergebnis");
    for (const std::string& Fund : Beurteilen(Grund(), Jetzt, {}))
        Wohin.Bruch(Später + Fund);
    for (const std::string& Name : Übrige(Grund(), Jetzt))
        if (!Angesagt(Lauf, Name) && !Angesagt(Danach, Name))
            Wohin.Bruch(Später + "Hilfsdatei bleibt ungesagt: " + Name);
}

}  // namespace liedwerk::haerte
