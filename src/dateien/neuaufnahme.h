// One adding run: from the found paths to the records at the end of the index.
//
// The run goes through its paths in order. Which path is taken is decided some way ahead, the files that are
// taken are read by several threads meanwhile, and everything that can be seen (progress, messages, changes
// of the index) happens in the order of the paths on the caller's thread, as if one file were done after the
// other. New records wait in a store of their own until Abschließen appends them in one step.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dateien/hinzufuegen.h"
#include "dateien/vorleser.h"
#include "index/satzspeicher.h"

namespace liedwerk {

// How the two ways of adding treat a path.
struct Aufnahmeregel {
    bool KeineDoppelten = false;
    bool OrdnerErlaubt = false;     // a folder is an entry, whatever the file types say
    bool ErstVorhanden = false;     // what is no file (missing, a pipe) is passed over and no duplicate
    bool ZweimalZeigen = false;     // progress only for paths of a managed type, before and behind the test
    std::string_view NichtBeiText;  // paths whose file name contains it are passed over
    // Each file is moved from below Ordner to below KopierenInOrdner first; empty: it stays.
    std::string_view Ordner;
    std::string_view KopierenInOrdner;
};

// OrdnerLöschenFragen for a folder out of which files were moved.
void LeerenOrdnerAnbieten(const Hinzufügeumgebung& Umgebung, std::string_view Ordner);

class Neuaufnahme {
  public:
    // DateiListeHinzuStarten: nothing pending, the medium forgotten.
    explicit Neuaufnahme(const Hinzufügeumgebung& Ziel);

    // DateienZumIndexHinzufügen for one folder entry, without the duplicate test.
    void OrdnerAufnehmen(const std::string& Ordner);
    // DateienZumIndexHinzufügen for every path. False when the person cancelled; what came before is pending.
    bool Aufnehmen(std::span<const std::string> Pfade, const Aufnahmeregel& Regel);
    // The same with moving. Nothing is done ahead: a file is moved only when its turn has come. True as well
    // when a failed move ended the run.
    bool UmziehenUndAufnehmen(std::span<const std::string> Pfade, const Aufnahmeregel& Regel);
    // Number of pending records.
    Satznummer Anzahl() const { return NeueDatensätze.Anzahl(); }
    // DateiListeHinzuBeenden: appends what is pending to the index. Gives what it has done.
    Hinzufügeergebnis Abschließen();

  private:
    enum class Schritt { Übergehen, Doppelt, Lesen };
    // What has been decided about a path.
    struct Plan {
        Schritt Art = Schritt::Übergehen;
        bool Zeigen = false;
        Satznummer Treffer = 0;     // the record that the path is a duplicate of
        std::string Wechselmedium;  // of the drive that holds the path
    };

    bool Gesucht(const std::string& Pfad, const Aufnahmeregel& Regel, bool IstOrdner) const;
    std::optional<std::string> Umziehen(const std::string& Pfad, const Aufnahmeregel& Regel, bool& Abbruch);
    // The records of a file that was moved from Pfad to Ort go with it, with all that the person has put into
    // them.
    void SätzeMitnehmen(const std::vector<Satznummer>& Nummern, const std::string& Pfad,
                        const std::string& Ort);
    Plan Planen(const std::string& Pfad, const Aufnahmeregel& Regel, Vorleser& Leser);
    bool Ausführen(const std::string& Pfad, const Plan& Was, const Aufnahmeregel& Regel, Vorleser& Leser,
                   std::int64_t Position);
    bool LeseErgebnis(const Plan& Was, Vorleser& Leser, std::int64_t Position);
    void Eintragen(Leseposten& Posten, const std::string& Wechselmedium);
    void DoppeltenVermerken(Satznummer Nummer, const std::string& Pfad);
    bool ZeilenendeMelden(const std::string& Pfad);
    // The records of this path on the medium that is in its drive now, in ascending order.
    std::vector<Satznummer> DoppelteSätze(const std::string& Pfad);
    const std::string& MediumDesPfades(const std::string& Pfad);
    bool Zeigen(std::int64_t Position) { return Umgebung.Person.FortschrittZeigen({}, Position); }

    const Hinzufügeumgebung& Umgebung;
    Leseauftrag Dateiauftrag;
    Leseauftrag Ordnerauftrag;
    Satzspeicher NeueDatensätze;
    std::map<std::string, std::string, std::less<>> Medien;  // medium text by drive, read once per run
    std::vector<std::string> Ausgelassen;
};

}  // namespace liedwerk
