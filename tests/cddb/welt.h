// A disc in a drive, a folder for the cache, and a person who is a script.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cd/cdbereiten.h"
#include "dateien/probeordner.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/person.h"

namespace liedwerk::test {

// Lists the tracks of "/cd" as files, and real folders.
class Titelordner final : public Ordnerleser {
  public:
    bool Auflisten(std::string_view Ordner,
                   const std::function<bool(const Ordnereintrag&)>& Besuch) const override {
        if (!Ordner.starts_with("/cd")) return Echt.Auflisten(Ordner, Besuch);
        for (const char* const Name : {"Track01.cda", "Track02.cda", "Track03.cda"}) {
            Ordnereintrag Eintrag;
            Eintrag.Name = Name;
            if (!Besuch(Eintrag)) break;
        }
        return true;
    }

  private:
    Systemordnerleser Echt;
};

struct CDWelt {
    CDWelt() {
        CDs.Liste["/cd"] = {0, {}, {{150, false}, {15000, false}, {60000, false}}, 210000};
        Werte.CDDBServer = "cd.example:8080";
        Werte.CDDBEmail = "anna.müller@example.org";
    }
    std::string Ordner() const { return Verzeichnis.Pfad; }
    CDUmgebung DiscUmgebung() {
        return {CDs, {Ordner() + "/CDDB", Leser, Log, "Liedwerk 1.00"}, [this](std::string_view Laufwerk) {
                    return CDs.Liste.contains(Laufwerk);
                }};
    }
    std::string Query() const {
        clsCcd Disc;
        Disc.Init(CDs, "/cd");
        return Disc.QueryString();
    }
    static std::vector<std::string> DateienUnter(const std::string& Ordner) {
        std::vector<std::string> Namen;
        for (const auto& Eintrag : std::filesystem::recursive_directory_iterator(Ordner)) {
            if (Eintrag.is_regular_file()) Namen.push_back(Eintrag.path().string().substr(Ordner.size()));
        }
        return Namen;
    }

    Probeordner Verzeichnis;
    speicher::CDs CDs;
    Titelordner Leser;
    speicher::Person Person;
    speicher::Protokollliste Log;
    Einstellungen Werte;
    CDStand Stand;
};

}  // namespace liedwerk::test
