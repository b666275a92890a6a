#include "dateien/ordnersuche.h"

#include <algorithm>
#include <set>
#include <utility>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

struct Suchlauf {
    const Ordnerleser& Leser;
    const Ordnersuche& Suche;
    Oberfläche* Person;
    std::vector<std::string>& FundListe;
    std::vector<std::string>* Ungelesen;
    std::set<std::pair<std::uint64_t, std::uint64_t>> Besucht;
    std::vector<std::pair<std::string, Ordnereintrag>> Verweise;  // links to folders, each with its folder

    bool Weiter(const std::string& Ordner) {
        return Person == nullptr || Person->FortschrittZeigen(Ordner, 0);
    }

    bool Gesucht(std::string_view Name) const {
        if (Suche.Endungen.empty() || Suche.Endungen.front().empty()) return true;
        return std::any_of(Suche.Endungen.begin(), Suche.Endungen.end(),
                           [&](const std::string& Endung) { return EndetMitOhneGroß(Name, Endung); });
    }

    // False for a folder that a link has led to before. One whose identity nobody knows counts as new.
    bool Erstmals(const Ordnereintrag& Eintrag) {
        return Eintrag.Inode == 0 || Besucht.emplace(Eintrag.Gerät, Eintrag.Inode).second;
    }

    // Lists one folder (with its final separator) and, when wanted, those below it. False on cancel.
    bool Durchsuchen(const std::string& Ordner) {
        std::vector<Ordnereintrag> Unterordner;
        bool Fortsetzen = true;
        const bool Gelesen = Leser.Auflisten(Ordner, [&](const Ordnereintrag& Eintrag) {
            if (Eintrag.IstOrdner) {
                if (Suche.OrdnerAuflisten) FundListe.push_back(Ordner + Eintrag.Name);
                if (Suche.Unterordner && Eintrag.IstVerweis) {
                    Verweise.emplace_back(Ordner, Eintrag);
                } else if (Suche.Unterordner) {
                    Unterordner.push_back(Eintrag);
                }
            } else if (Gesucht(Eintrag.Name)) {
                FundListe.push_back(Ordner + Eintrag.Name);
            }
            Fortsetzen = Weiter(Ordner);
            return Fortsetzen;
        });
        if (!Fortsetzen) return false;
        // What a file system saves from broken files belongs to the system, and holds nobody's files.
        if (!Gelesen && Ungelesen != nullptr && !Ordner.ends_with("/lost+found/"))
            Ungelesen->push_back(Ordner);
        return std::all_of(Unterordner.begin(), Unterordner.end(),
                           [&](const Ordnereintrag& Eintrag) { return Absteigen(Ordner, Eintrag); });
    }

    bool Absteigen(const std::string& Ordner, const Ordnereintrag& Eintrag) {
        if (!Weiter(Ordner)) return false;
        return !Erstmals(Eintrag) || Durchsuchen(Ordner + Eintrag.Name + Trenner(Ordner));
    }

    // Links to folders come last: a folder that has a place of its own in the walk is found there, whatever
    // the order of the listing, and a second walk finds its files under the same names.
    bool VerweisenFolgen() {
        for (std::size_t i = 0; i < Verweise.size(); ++i) {
            const auto [Ordner, Eintrag] = Verweise[i];  // a copy: further links may come in
            if (!Absteigen(Ordner, Eintrag)) return false;
        }
        return true;
    }
};

}  // namespace

bool DateienSuchenAPI(const Ordnerleser& Leser, std::string_view Ordner, const Ordnersuche& Suche,
                      Oberfläche* Person, std::vector<std::string>& FundListe,
                      std::vector<std::string>* Ungelesen) {
    Suchlauf Lauf{Leser, Suche, Person, FundListe, Ungelesen, {}, {}};
    if (const auto Stand = DateistandLesen(Ordner)) Lauf.Besucht.emplace(Stand->Gerät, Stand->Inode);
    return Lauf.Durchsuchen(MitTrenner(Ordner)) && Lauf.VerweisenFolgen();
}

}  // namespace liedwerk
