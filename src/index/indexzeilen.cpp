#include "index/indexzeilen.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

#include "index/indexformat.h"
#include "index/zeilenpruefung.h"

namespace liedwerk {
namespace {

// Below this a second thread costs more than it saves.
constexpr std::size_t KleinsterTeil = std::size_t{4} << 20;
// No data line that a save writes is shorter.
constexpr std::size_t KürzesteSatzzeile = 32;
// So many bytes of content pay for one special line in memory; the first few are free.
constexpr std::size_t InhaltJeSonderzeile = 128;
constexpr std::size_t FreieSonderzeilen = 4096;
constexpr unsigned HöchsteTeile = 16;
constexpr std::int64_t ZeilenJeMeldung = 500;
constexpr auto MeldeAbstand = std::chrono::milliseconds(100);

// Behind the first line end at or after Stelle; the end of the content when there is none.
std::size_t HinterZeilenende(std::string_view Inhalt, std::size_t Stelle, bool NurLf) {
    const std::string_view Ende = NurLf ? Zeilenende.substr(1) : Zeilenende;
    const std::size_t Fund = Inhalt.find(Ende, Stelle);
    return Fund == Inhalt.npos ? Inhalt.size() : Fund + Ende.size();
}

// About how many records the content holds, by its first lines.
std::size_t SatzzahlSchätzen(std::string_view Inhalt) {
    const std::string_view Probe = Inhalt.substr(0, std::size_t{64} << 10);
    const auto Zeilen = static_cast<std::size_t>(std::count(Probe.begin(), Probe.end(), '\n'));
    if (Zeilen == 0) return 0;
    return Inhalt.size() / std::max(Probe.size() / Zeilen, KürzesteSatzzeile) * 21 / 20 + 1;
}

// A part of the content and what has been found in it so far.
struct Abschnitt {
    std::string_view Inhalt;
    std::size_t Stelle = 0;
    std::size_t Satzzahl = 0;  // expected
    Zeilenteil Fund;
};

// Walks on from front to back until the end or until there are too many special lines.
void Weitergehen(const Zeilenauftrag& Auftrag, Abschnitt& Teil, std::atomic<std::size_t>& Gelesen) {
    const std::string_view Inhalt = Teil.Inhalt;
    const char* const Ende = Inhalt.data() + Inhalt.size();
    const std::size_t HöchsteSonderzeilen = FreieSonderzeilen + Inhalt.size() / InhaltJeSonderzeile;
    Zeilenteil& Fund = Teil.Fund;
    if (Auftrag.MitDatensätzen && Teil.Stelle == 0) Fund.Plätze.reserve(Teil.Satzzahl);
    std::size_t Stelle = Teil.Stelle;
    while (Stelle < Inhalt.size() && Fund.Sonderzeilen.size() < HöchsteSonderzeilen) {
        const std::string_view Rest = Inhalt.substr(Stelle);
        const auto Satz = Auftrag.MitDatensätzen && Rest.starts_with(Datenzeile)
                              ? SatzzeilePrüfen(Rest.data(), Ende, Auftrag.NurLf)
                              : std::nullopt;
        if (Satz) {
            Fund.Plätze.push_back(Satz->Platz);
            Fund.Unvollständig |= Satz->Unvollständig;
            Stelle = static_cast<std::size_t>(Satz->Dahinter - Inhalt.data());
            if (Satz->Dahinter != Satz->Platz.Zeile + Satz->Platz.Länge) ++Fund.Zeilen;
        } else {
            bool Abgeschlossen = false;
            const std::string_view Zeile = ZeileNehmen(Inhalt, Stelle, Auftrag.NurLf, Abgeschlossen);
            // Kept: a last line without line end has the number of the line in front of it.
            if (Abgeschlossen) ++Fund.Zeilen;
            Fund.Sonderzeilen.push_back({Zeile, Fund.Zeilen, Fund.Plätze.size()});
        }
        if (Fund.Zeilen % ZeilenJeMeldung == 0) {
            Gelesen.fetch_add(Stelle - Teil.Stelle, std::memory_order_relaxed);
            Teil.Stelle = Stelle;
        }
    }
    Gelesen.fetch_add(Stelle - Teil.Stelle, std::memory_order_relaxed);
    Teil.Stelle = Stelle;
}

unsigned Teilzahl(const Zeilenauftrag& Auftrag) {
    if (Auftrag.Teile != 0) return Auftrag.Teile;
    const std::size_t Lohnend = Auftrag.Inhalt.size() / KleinsterTeil;
    const unsigned Kerne = std::clamp(std::thread::hardware_concurrency(), 1U, HöchsteTeile);
    return static_cast<unsigned>(std::min<std::size_t>(Lohnend, Kerne));
}

std::vector<Abschnitt> Zerschneiden(const Zeilenauftrag& Auftrag, unsigned Anzahl) {
    std::vector<Abschnitt> Teile(Anzahl);
    std::size_t Anfang = 0;
    for (unsigned i = 0; i < Anzahl; ++i) {
        const std::size_t Grenze = std::max(Anfang, Auftrag.Inhalt.size() / Anzahl * (i + 1));
        const std::size_t Ende =
            i + 1 == Anzahl ? Auftrag.Inhalt.size() : HinterZeilenende(Auftrag.Inhalt, Grenze, Auftrag.NurLf);
        Teile[i].Inhalt = Auftrag.Inhalt.substr(Anfang, Ende - Anfang);
        // The slots of all parts end in the list of the first.
        Teile[i].Satzzahl = SatzzahlSchätzen(i == 0 ? Auftrag.Inhalt : Teile[i].Inhalt);
        Anfang = Ende;
    }
    return Teile;
}

// Carries the work out on threads of their own while this one shows how far it is. A thread that the system
// does not give is replaced by this one; what goes wrong in a thread is thrown here.
void NebenläufigAusführen(const std::vector<std::function<void()>>& Arbeiten,
                          const std::function<void()>& Zeigen) {
    std::mutex Schloss;
    std::condition_variable Fertig;
    std::size_t Offen = Arbeiten.size();
    std::exception_ptr Fehler;
    const auto Ausführen = [&](const std::function<void()>& Arbeit) {
        std::exception_ptr Eigener;
        try {
            Arbeit();
        } catch (...) {
            Eigener = std::current_exception();
        }
        const std::lock_guard Halter(Schloss);
        if (Eigener) Fehler = Eigener;
        if (--Offen == 0) Fertig.notify_one();
    };
    std::vector<std::thread> Fäden;
    Fäden.reserve(Arbeiten.size());
    for (const auto& Arbeit : Arbeiten) {
        try {
            Fäden.emplace_back([&Ausführen, &Arbeit] { Ausführen(Arbeit); });
        } catch (const std::exception&) {
            Ausführen(Arbeit);
        }
    }
    {
        std::unique_lock Halter(Schloss);
        while (!Fertig.wait_for(Halter, MeldeAbstand, [&] { return Offen == 0; })) {
            Halter.unlock();
            Zeigen();
            Halter.lock();
        }
    }
    for (auto& Faden : Fäden)
        Faden.join();
    if (Fehler) std::rethrow_exception(Fehler);
}

}  // namespace

std::string_view ZeileNehmen(std::string_view Inhalt, std::size_t& Stelle, bool NurLf, bool& Abgeschlossen) {
    const std::size_t Anfang = Stelle;
    const std::string_view Ende = NurLf ? Zeilenende.substr(1) : Zeilenende;
    const std::size_t Schluss = Inhalt.find(Ende, Anfang);
    Abgeschlossen = Schluss != Inhalt.npos;
    Stelle = Abgeschlossen ? Schluss + Ende.size() : Inhalt.size();
    std::string_view Zeile = Inhalt.substr(Anfang, Abgeschlossen ? Schluss - Anfang : Inhalt.npos);
    if ((NurLf || !Abgeschlossen) && Zeile.ends_with('\r')) Zeile.remove_suffix(1);
    return Zeile;
}

void ZeilenDurchgehen(const Zeilenauftrag& Auftrag, const std::function<void(Zeilenteil&)>& Übernehmen) {
    const unsigned Anzahl = std::max(1U, Teilzahl(Auftrag));
    auto Teile = Zerschneiden(Auftrag, Anzahl);
    std::atomic<std::size_t> Gelesen = 0;
    const auto Zeigen = [&] {
        if (Auftrag.Zeigen) Auftrag.Zeigen(Gelesen.load(std::memory_order_relaxed));
    };
    if (Anzahl == 1 && Auftrag.Inhalt.size() < KleinsterTeil) {
        Weitergehen(Auftrag, Teile[0], Gelesen);
        if (Teile[0].Fund.Zeilen >= ZeilenJeMeldung) Zeigen();
    } else {
        std::vector<std::function<void()>> Arbeiten;
        for (Abschnitt& Teil : Teile) {
            Arbeiten.emplace_back([&] { Weitergehen(Auftrag, Teil, Gelesen); });
        }
        NebenläufigAusführen(Arbeiten, Zeigen);
        Zeigen();
    }
    std::int64_t Davor = Auftrag.ErsteNummer;
    for (Abschnitt& Teil : Teile) {
        for (;;) {
            for (Sonderzeile& Zeile : Teil.Fund.Sonderzeilen)
                Zeile.Nummer += Davor;
            Davor += Teil.Fund.Zeilen;
            Übernehmen(Teil.Fund);
            Teil.Fund = {};
            if (Teil.Stelle == Teil.Inhalt.size()) break;
            Weitergehen(Auftrag, Teil, Gelesen);
            Zeigen();
        }
    }
}

}  // namespace liedwerk
