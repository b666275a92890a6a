#include "dateien/pfadverzeichnis.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "basis/pfad.h"
#include "basis/text.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

std::uint32_t StreuwertVon(std::string_view Schlüssel) {
    const auto Voll = static_cast<std::uint64_t>(std::hash<std::string_view>{}(Schlüssel));
    return static_cast<std::uint32_t>(Voll ^ (Voll >> 32U));
}

}  // namespace

// The key of a record's path, built in buffers that are used again: the table is built over the whole index.
std::string_view Pfadverzeichnis::Schlüssel(const Satzspeicher& Sätze, Satznummer Nummer) {
    Pfadpuffer.clear();
    IndexwertLesenAnhängen(Pfadpuffer, Sätze.Roh(Nummer, FeldPfad));
    if (IstPosixPfad(Pfadpuffer)) return Pfadpuffer;
    Schlüsselpuffer.clear();
    FaltenAnhängen(Schlüsselpuffer, Pfadpuffer);
    return Schlüsselpuffer;
}

void Pfadverzeichnis::Einfügen(const Satzspeicher& Sätze, Satznummer Nummer) {
    const std::uint32_t Streuwert = StreuwertVon(Schlüssel(Sätze, Nummer));
    auto& Fach = Fächer[Streuwert & (Fächer.size() - 1)];
    Glieder.push_back({Streuwert, Nummer, Fach});
    Fach = static_cast<std::uint32_t>(Glieder.size());
}

void Pfadverzeichnis::Aufbauen(const Satzspeicher& Sätze) {
    constexpr std::size_t Mindestens = 1024;
    const auto Anzahl = static_cast<std::size_t>(Sätze.Anzahl());
    Fächer.assign(std::bit_ceil(std::max(Mindestens, Anzahl)), 0);
    Glieder.clear();
    Glieder.reserve(Anzahl);
    for (Satznummer Nummer = 1; Nummer <= Sätze.Anzahl(); ++Nummer)
        Einfügen(Sätze, Nummer);
    Generation = Sätze.Generation();
    GeleseneÄnderungen = Sätze.GeänderteSätze().size();
    Eingetragen = Sätze.Anzahl();
}

void Pfadverzeichnis::Nachführen(const Satzspeicher& Sätze) {
    const auto Geändert = Sätze.GeänderteSätze();
    const bool Dasselbe = !Fächer.empty() && Generation == Sätze.Generation() &&
                          GeleseneÄnderungen <= Geändert.size() && Eingetragen <= Sätze.Anzahl();
    // Chains twice as long as planned, grown by new records or by dead links, call for a new table.
    if (!Dasselbe || Glieder.size() > Fächer.size() * 2) Aufbauen(Sätze);
    while (Eingetragen < Sätze.Anzahl())
        Einfügen(Sätze, ++Eingetragen);
    for (; GeleseneÄnderungen < Geändert.size(); ++GeleseneÄnderungen)
        Einfügen(Sätze, Geändert[GeleseneÄnderungen]);
}

template <class Besuch>
void Pfadverzeichnis::Durchgehen(const Satzspeicher& Sätze, std::string_view Pfad, Besuch&& Treffer) {
    Nachführen(Sätze);
    const std::string Gefaltet = IstPosixPfad(Pfad) ? std::string() : PfadSchlüssel(Pfad);
    const std::string_view Gesucht = IstPosixPfad(Pfad) ? Pfad : Gefaltet;
    const std::uint32_t Streuwert = StreuwertVon(Gesucht);
    for (auto Stelle = Fächer[Streuwert & (Fächer.size() - 1)]; Stelle != 0;) {
        const Glied& Hier = Glieder[Stelle - 1];
        if (Hier.Streuwert == Streuwert && Schlüssel(Sätze, Hier.Nummer) == Gesucht) Treffer(Hier.Nummer);
        Stelle = Hier.Nächstes;
    }
}

std::vector<Satznummer> Pfadverzeichnis::Finden(const Satzspeicher& Sätze, std::string_view Pfad) {
    std::vector<Satznummer> Treffer;
    Durchgehen(Sätze, Pfad, [&](Satznummer Nummer) { Treffer.push_back(Nummer); });
    std::sort(Treffer.begin(), Treffer.end());
    Treffer.erase(std::unique(Treffer.begin(), Treffer.end()), Treffer.end());
    return Treffer;
}

Satznummer Pfadverzeichnis::ErstenFinden(const Satzspeicher& Sätze, std::string_view Pfad) {
    Satznummer Erster = 0;
    Durchgehen(Sätze, Pfad, [&](Satznummer Nummer) {
        if (Erster == 0 || Nummer < Erster) Erster = Nummer;
    });
    return Erster;
}

}  // namespace liedwerk
