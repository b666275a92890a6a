// The drives of the real system: mount table, disk service, folders of removable media.
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "plattform/laufwerke.h"
#include "plattform/linux/einhaengungstabelle.h"

namespace liedwerk {

// May be used from several threads. Drives of Windows paths ("D:\") are known by name only: their kind is
// Unbekannt and they are never there. An audio CD is a drive of its own (linux/audiocd.h); it has no label.
class Systemlaufwerke final : public Laufwerke {
  public:
    Systemlaufwerke();
    // Links on the way are followed, so that a folder linked into the home folder lies on the stick it is on.
    std::string LaufwerkVon(std::string_view Pfad) const override;
    Laufwerksart Art(std::string_view Laufwerk) const override;
    // A network drive's "label" is its server and share.
    std::string Datenträgername(std::string_view Laufwerk) const override;
    bool Vorhanden(std::string_view Laufwerk) const override;

  private:
    std::string OrdnerlaufwerkVon(std::string_view Ordner) const;
    const Einhängung* VorgeseheneFür(std::string_view Ordner) const;
    bool IstNetzort(std::string_view Laufwerk) const;

    mutable std::mutex Riegel;
    mutable Einhängungstabelle Tabelle;
    // Where disks and shares are meant to stand: such a place is a drive also while nothing is mounted there,
    // so that its files are out of reach then and not deleted.
    const std::vector<Einhängung> Vorgesehene;
    // Drives by folder, for one state of the table and not for long: links may be bent meanwhile.
    mutable std::unordered_map<std::string, std::string> Ordnerlaufwerke;
    mutable unsigned OrdnerStand = 0;
    mutable std::chrono::steady_clock::time_point OrdnerZeit;
    // Kinds that had to be asked for, valid for one state of the table.
    mutable std::map<std::string, Laufwerksart, std::less<>> Arten;
    mutable unsigned ArtenStand = 0;
};

}  // namespace liedwerk
