#include "dateien/vorleser.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "basis/datei.h"

namespace liedwerk {
namespace {

// Items that a thread takes at once: so few that all threads end together, so many that taking costs nothing.
constexpr std::uint64_t HöchsterGriff = 8;
constexpr std::uint64_t Vorrat = 32;
constexpr std::chrono::milliseconds Kurz(5);

bool PfadVorhanden(std::string_view Pfad, bool IstOrdner) {
    return IstOrdner ? OrdnerExistiert(Pfad) : DateiExistiert(Pfad);
}

}  // namespace

unsigned Lesefäden(std::size_t Dateien) {
    constexpr std::size_t Höchstens = 16;
    return static_cast<unsigned>(
        std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, std::min(Höchstens, Dateien + 1)));
}

Vorleser::Vorleser(const MedienLeser& Leser, unsigned Anzahl)
    : Fadenzahl(std::max(1U, Anzahl)), Ring(Ringgröße) {
    Fäden.reserve(Fadenzahl);
    for (std::uint64_t Nummer = 0; Nummer < Fadenzahl; ++Nummer) {
        try {
            Fäden.emplace_back([this, &Leser] { Arbeiten(Leser); });
        } catch (const std::exception&) {
            // The system gives no more threads: those that there are do the work.
            if (Fäden.empty()) throw;
            return;
        }
    }
}

Vorleser::~Vorleser() {
    {
        const std::lock_guard Gesperrt(Riegel);
        Ende = true;
    }
    Arbeit.notify_all();
    for (auto& Faden : Fäden)
        Faden.join();
}

void Vorleser::Auftragen(std::string Pfad, bool IstOrdner, const Leseauftrag& Auftrag) {
    Platz& Ziel = PlatzVon(Aufgetragen++);
    Ziel.Posten = {std::move(Pfad), IstOrdner, Auftrag, false, {}, {}};
    Ziel.Fertig.store(false, std::memory_order_relaxed);
}

void Vorleser::Losschicken() {
    {
        const std::lock_guard Gesperrt(Riegel);
        if (Losgeschickt == Aufgetragen) return;
        Losgeschickt = Aufgetragen;
    }
    Arbeit.notify_all();
}

void Vorleser::Arbeiten(const MedienLeser& Leser) {
    for (;;) {
        std::uint64_t Von = 0;
        std::uint64_t Bis = 0;
        {
            std::unique_lock Gesperrt(Riegel);
            Arbeit.wait(Gesperrt, [&] { return Ende || Geholt < Losgeschickt; });
            if (Ende) return;
            const std::uint64_t Anteil = (Losgeschickt - Geholt) / (2 * Fadenzahl);
            Von = Geholt;
            Bis = Von + std::clamp<std::uint64_t>(Anteil, 1, HöchsterGriff);
            Geholt = Bis;
        }
        for (; Von < Bis; ++Von) {
            if (Ende) return;
            Lesen(Leser, PlatzVon(Von));
        }
    }
}

void Vorleser::Lesen(const MedienLeser& Leser, Platz& Ziel) {
    auto& Posten = Ziel.Posten;
    // A fault in one file must not end the program, as an exception that leaves a thread does.
    try {
        Posten.Vorhanden = PfadVorhanden(Posten.Pfad, Posten.IstOrdner);
        if (Posten.Vorhanden) Posten.Satz = Leser(Posten.Pfad, Datensatz{}, Posten.Auftrag);
    } catch (const std::exception& Fehler) {
        Posten.Vorhanden = false;
        Posten.Fehler = Fehler.what();
    }
    // Both sides set their mark before they look at the other's, so a waiting caller is never overlooked.
    Ziel.Fertig.store(true);
    if (Erwartet.load() != &Ziel) return;
    const std::lock_guard Gesperrt(Riegel);
    Ergebnis.notify_one();
}

Leseposten* Vorleser::Abwarten(std::chrono::milliseconds Höchstens) {
    Platz& Ältester = PlatzVon(Abgeholt);
    if (Ältester.Fertig.load()) return &Ältester.Posten;
    const auto Grenze = std::chrono::steady_clock::now() + Höchstens;
    // Waking up for every single file would cost more than reading it: better let some more come in, but not
    // for long.
    const std::uint64_t Letzter = std::min(Abgeholt + Vorrat, Losgeschickt) - 1;
    std::unique_lock Gesperrt(Riegel);
    for (Platz* Ziel = &PlatzVon(Letzter);; Ziel = &Ältester) {
        Erwartet.store(Ziel);
        Ergebnis.wait_for(Gesperrt, Kurz, [&] { return Ziel->Fertig.load(); });
        Erwartet.store(nullptr);
        if (Ältester.Fertig.load()) return &Ältester.Posten;
        if (std::chrono::steady_clock::now() >= Grenze) return nullptr;
    }
}

void Vorleser::Ablegen() {
    ++Abgeholt;
}

}  // namespace liedwerk
