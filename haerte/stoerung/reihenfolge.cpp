#include "haerte/stoerung/reihenfolge.h"

#include <algorithm>
#include <map>

namespace liedwerk::haerte {
namespace {

std::string OrdnerVon(const std::string& Pfad) {
    return Pfad.substr(0, Pfad.rfind('/'));
}

bool Schreibt(const Rufzeile& Ruf) {
    return Ruf.Name.find("write") != std::string::npos || Ruf.Name == "ftruncate" || Ruf.Name == "sendfile" ||
           Ruf.Name == "copy_file_range";
}

class Richter {
  public:
    Richter(std::string Wo, const Schreiber& Wessen, const Urteilsgrund& Beide,
            const std::vector<Rufzeile>& Alle)
        : Ordner(std::move(Wo) + "/"), Wer(Wessen), Grund(Beide), Rufe(Alle) {}

    std::vector<std::string> Urteil() {
        for (Stelle = 0; Stelle < Rufe.size(); ++Stelle) {
            const Rufzeile& Ruf = Rufe[Stelle];
            const std::string Name = Kurz(Ruf.Pfad);
            if (Ruf.Ergebnis < 0 || Name == "prog/log.txt" || Name.starts_with("heim")) continue;
            if (Schreibt(Ruf)) Geschrieben(Ruf, Name);
            if (Ruf.Name == "fsync" || Ruf.Name == "fdatasync") Offen.erase(Ruf.Pfad);
            if (Ruf.Name == "open-leerend" && War(Name)) Funde.push_back("leerend geöffnet: " + Name);
            if (Ruf.Name.starts_with("rename")) Umbenannt(Ruf);
            if (Ruf.Name == "unlink" && War(Name)) Gelöscht(Name);
        }
        for (const auto& [Name, Anzahl] : AmOrt) {
            if (Wer.MehrereNamen) continue;
            // Several tags are several saves.
            const int Höchstens =
                Wer.AmOrt ? std::max(1, std::min(3, static_cast<int>(Wer.Teile.size()))) : 0;
            if (Anzahl > Höchstens)
                Funde.push_back(std::to_string(Anzahl) + " Schreibaufrufe am Ort: " + Name);
        }
        return Funde;
    }

  private:
    std::string Kurz(const std::string& Pfad) const {
        return Pfad.starts_with(Ordner) ? Pfad.substr(Ordner.size()) : Pfad;
    }
    bool War(const std::string& Name) const { return Grund.Vorher.contains(Name); }
    void Geschrieben(const Rufzeile& Ruf, const std::string& Name) {
        Offen[Ruf.Pfad] = true;
        if (War(Name)) ++AmOrt[Name];
    }
    bool DanachFestgeschrieben(const std::string& Pfad) const {
        return std::any_of(Rufe.begin() + static_cast<std::ptrdiff_t>(Stelle), Rufe.end(),
                           [&](const Rufzeile& Ruf) {
                               return Ruf.Name == "fsync" && Ruf.Pfad == Pfad && Ruf.Ergebnis >= 0;
                           });
    }
    void Umbenannt(const Rufzeile& Ruf) {
        if (Offen.contains(Ruf.Pfad)) Funde.push_back("umbenannt, nicht festgeschrieben: " + Kurz(Ruf.Pfad));
        if (!DanachFestgeschrieben(OrdnerVon(Ruf.Neu)))
            Funde.push_back("Ordner nicht festgeschrieben: " + Kurz(Ruf.Neu));
        if (War(Kurz(Ruf.Pfad)) && !DanachFestgeschrieben(OrdnerVon(Ruf.Pfad)))
            Funde.push_back("Ordner nicht festgeschrieben: " + Kurz(Ruf.Pfad));
        Angekommen[Kurz(Ruf.Neu)] = true;
    }
    // A file that goes must not be the last place of what the result still holds.
    void Gelöscht(const std::string& Name) {
        if (Grund.Nachher.contains(Name) && !Angekommen.contains(Name))
            Funde.push_back("gelöscht, bevor der Ersatz steht: " + Name);
        const std::string& Inhalt = Grund.Vorher.at(Name).Inhalt;
        for (const auto& [Neuer, Stand] : Grund.Nachher) {
            const bool Hier = Stand.Art == 'f' && Stand.Inhalt == Inhalt && !Inhalt.empty();
            if (Hier && !War(Neuer) && !Neuer.starts_with("heim") && !Angekommen.contains(Neuer))
                Funde.push_back("gelöscht, bevor die Kopie steht: " + Name);
        }
    }

    const std::string Ordner;
    const Schreiber& Wer;
    const Urteilsgrund& Grund;
    const std::vector<Rufzeile>& Rufe;
    std::size_t Stelle = 0;
    std::map<std::string, bool> Offen;       // written, not yet flushed
    std::map<std::string, bool> Angekommen;  // names that a rename has filled
    std::map<std::string, int> AmOrt;        // writes into files that were there
    std::vector<std::string> Funde;
};

}  // namespace

std::vector<std::string> ReihenfolgeBeurteilen(const std::string& Ordner, const Schreiber& Wer,
                                               const Urteilsgrund& Grund, const std::vector<Rufzeile>& Rufe) {
    return Richter(Ordner, Wer, Grund, Rufe).Urteil();
}

}  // namespace liedwerk::haerte
