#include "abspielen/playliste.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::string_view Listenname = "liedwerk";
constexpr std::string_view Listenendung = ".m3u";
constexpr std::int64_t Aufbewahrung = 15 * 60;  // seconds

std::string Feldtext(const Katalog& Index, Satznummer Nummer, std::string_view Feld) {
    std::string Wert;
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Feld, Wertform::Sortieren, false, Wert, Typ);
    // A line end in a value would make lines of its own in the list.
    return Ersetzen(Ersetzen(Wert, "\r", " "), "\n", " ");
}

bool GehörtDemSystem(std::string_view Ordner) {
    return IstPosixPfad(Ordner) && (Ordner == "/" || MitTrenner(Ordner).starts_with("/usr/") ||
                                    MitTrenner(Ordner).starts_with("/bin/"));
}

// A test by writing: rights alone do not tell of a full or read-only file system, and a list that is there
// is replaced through a new file beside it, which the folder must take.
bool OrdnerNimmtDatei(const std::string& Datei) {
    if (DateiExistiert(Datei) && !DateiBeschreibbar(Datei)) return false;
    Dateiersatz Probe;
    return Probe.Öffnen(Datei, VorläufigerName(Datei)) == Dateiersatz::Öffnung::Bereit;
}

}  // namespace

std::string ExtInfZeile(const Katalog& Index, Satznummer Nummer) {
    if (Index.Sätze.HatId3v1(Nummer) != TagVorhanden || Index.Sätze.Zahl(Nummer, FeldDauer) < 1) return {};
    return "#EXTINF:" + Feldtext(Index, Nummer, "Dauer") + "," + Feldtext(Index, Nummer, "Interpret") +
           " - " + Feldtext(Index, Nummer, "Titel");
}

std::string PlaylistdateiWählen(std::string_view WinampPfad, std::string_view Laufzeitordner,
                                const Zeitpunkt& Jetzt) {
    const std::string_view Ordner = PfadVon(WinampPfad);
    std::string Datei = PfadVerbinden(Ordner, std::string(Listenname) + std::string(Listenendung));
    if (!GehörtDemSystem(Ordner) && OrdnerNimmtDatei(Datei)) return Datei;
    static_cast<void>(OrdnerAnlegen(Laufzeitordner, Zugang::NurEigener));
    const std::string Anfang =
        PfadVerbinden(Laufzeitordner, std::string(Listenname) + "-" + ZeitSortierText(Jetzt));
    for (int Nummer = 1;; ++Nummer) {
        Datei = Anfang + "-" + std::to_string(Nummer) + std::string(Listenendung);
        if (!DateiExistiert(Datei)) return Datei;
    }
}

void AltePlaylistenLöschen(const Ordnerleser& Ordner, const Uhr& Zeit, std::string_view Laufzeitordner) {
    std::vector<std::string> Alte;
    const std::int64_t Jetzt = Kalendersekunden(Zeit.Jetzt());
    Ordner.Auflisten(Laufzeitordner, [&](const Ordnereintrag& Eintrag) {
        const bool Unsere = Eintrag.Name.starts_with(std::string(Listenname) + "-") &&
                            Eintrag.Name.ends_with(Listenendung) && !Eintrag.IstOrdner;
        if (!Unsere) return true;
        const std::string Pfad = PfadVerbinden(Laufzeitordner, Eintrag.Name);
        const auto Stand = DateistandLesen(Pfad);
        if (Stand && Jetzt - Kalendersekunden(Zeit.Lokal(Stand->Änderungszeit)) > Aufbewahrung)
            Alte.push_back(Pfad);
        return true;
    });
    for (const std::string& Pfad : Alte)
        static_cast<void>(DateiLöschen(Pfad));
}

std::string PlaylisteSchreiben(std::string_view Datei, std::string_view Inhalt) {
    const std::string Ziel(Datei);
    Dateiersatz Ersatz;
    const auto Öffnung = Ersatz.Öffnen(Ziel, VorläufigerName(Ziel));
    if (Öffnung == Dateiersatz::Öffnung::Gesperrt) return "Ein anderes Programm schreibt diese gerade.";
    if (Öffnung == Dateiersatz::Öffnung::Bereit && Ersatz.Schreiben(Inhalt) && Ersatz.Übernehmen()) return {};
    return Ersatz.Fehler().Text;
}

}  // namespace liedwerk
