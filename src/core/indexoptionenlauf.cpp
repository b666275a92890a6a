#include "core/indexoptionenlauf.h"

#include <algorithm>
#include <utility>

#include "basis/pfad.h"
#include "basis/text.h"
#include "core/regelvertrauen.h"
#include "core/suchlauf.h"
#include "index/optionszeilen.h"

namespace liedwerk {
namespace {

constexpr std::string_view AlleAnderen = "*";

// True for a type that comes back with every load.
bool IstGrundtyp(std::string_view Endung, bool MitWeiteren) {
    return std::ranges::any_of(Grundtypen(MitWeiteren), [&](const Dateityp& Typ) {
        return GleichOhneGroß(EintragsEndung(Typ.Eintrag), Endung);
    });
}

// The extension as it was meant: without what people put in front of it, in lower case.
std::string Bereinigt(std::string_view Endung) {
    Endung = Kürzen(Endung);
    if (Endung.starts_with("*.")) Endung.remove_prefix(1);
    if (Endung.starts_with('.')) Endung.remove_prefix(1);
    return Kleinbuchstaben(Endung);
}

std::string EndungPrüfen(const Indexoptionen& Optionen, std::string_view Endung, std::size_t Eigener) {
    if (Endung.empty()) return "Bitte geben Sie eine Datei-Endung ein, zum Beispiel 'mp3'.";
    if (Endung.find_first_of("=,./\\*?\r\n\t ") != std::string_view::npos)
        return "Die Datei-Endung '" + std::string(Endung) +
               "' ist ungültig.\nSie darf weder Leerzeichen noch eines der Zeichen = , . / \\ * ? enthalten.";
    for (std::size_t Platz = 0; Platz < Optionen.Dateitypen.size(); ++Platz) {
        if (Platz != Eigener && GleichOhneGroß(EintragsEndung(Optionen.Dateitypen[Platz].Eintrag), Endung))
            return "Die Datei-Endung '" + std::string(Endung) + "' ist schon in der Liste.";
    }
    return {};
}

// True when the rule comes back from its line as it is.
bool Lesbar(const SyncRegel& Regel) {
    Indexoptionen Hin;
    Hin.SyncOrdner = {Regel};
    Hin.SyncLeer = 0;
    std::string Zeilen;
    OptionszeilenSchreiben(Zeilen, Hin);
    Indexoptionen Zurück;
    OptionszeileLesen(Zurück, std::string_view(Zeilen).substr(0, Zeilen.find('\r')), [](std::string_view) {});
    return Zurück.SyncOrdner == Hin.SyncOrdner;
}

bool LiegtIn(std::string_view Ordner, std::string_view Oberer) {
    const std::string Anfang = MitTrenner(Oberer);
    return Ordner.size() > Anfang.size() && PfadeGleich(Ordner.substr(0, Anfang.size()), Anfang);
}

}  // namespace

bool TypVerwaltet(const Dateityp& Typ) {
    return !Typ.Eintrag.ends_with('0');
}

bool TypschalterLesen(const Dateityp& Typ, Typschalter Welcher) {
    const auto Platz = static_cast<std::size_t>(Welcher);
    return Platz < Typ.Schalter.size() && Typ.Schalter[Platz] == '1';
}

void TypVerwaltetSetzen(Dateityp& Typ, bool Verwaltet) {
    Typ.Eintrag = std::string(EintragsEndung(Typ.Eintrag)) + (Verwaltet ? "=1" : "=0");
}

void TypschalterSetzen(Dateityp& Typ, Typschalter Welcher, bool An) {
    if (Typ.Schalter.size() < 3) Typ.Schalter.resize(3, '0');
    Typ.Schalter[static_cast<std::size_t>(Welcher)] = An ? '1' : '0';
}

std::string DateitypHinzufügen(Indexoptionen& Optionen, std::string_view Endung) {
    const std::string Neue = Bereinigt(Endung);
    std::string Meldung = EndungPrüfen(Optionen, Neue, Optionen.Dateitypen.size());
    if (!Meldung.empty()) return Meldung;
    // Ahead of the entry for all others, where the person looks for it.
    const auto Stelle = std::ranges::find_if(
        Optionen.Dateitypen, [](const Dateityp& Typ) { return EintragsEndung(Typ.Eintrag) == AlleAnderen; });
    Optionen.Dateitypen.insert(Stelle, {Neue + "=1", "010"});
    return {};
}

std::string DateitypUmbenennen(Indexoptionen& Optionen, std::size_t Platz, std::string_view Endung,
                               bool MitWeiteren) {
    Dateityp& Typ = Optionen.Dateitypen[Platz];
    const std::string Alte(EintragsEndung(Typ.Eintrag));
    const std::string Neue = Bereinigt(Endung);
    if (GleichOhneGroß(Alte, Neue)) return {};
    if (IstGrundtyp(Alte, MitWeiteren))
        return "Der Dateityp '" + Alte +
               "' gehört zu den Vorgaben und kann nicht umbenannt werden.\nFügen Sie stattdessen einen neuen "
               "hinzu.";
    std::string Meldung = EndungPrüfen(Optionen, Neue, Platz);
    if (Meldung.empty()) Typ.Eintrag = Neue + (TypVerwaltet(Typ) ? "=1" : "=0");
    return Meldung;
}

std::string DateitypEntfernen(Indexoptionen& Optionen, std::size_t Platz, bool MitWeiteren) {
    Dateityp& Typ = Optionen.Dateitypen[Platz];
    const std::string Endung(EintragsEndung(Typ.Eintrag));
    if (!IstGrundtyp(Endung, MitWeiteren)) {
        Optionen.Dateitypen.erase(Optionen.Dateitypen.begin() + static_cast<std::ptrdiff_t>(Platz));
        return {};
    }
    TypVerwaltetSetzen(Typ, false);
    return "Der Dateityp '" + Endung +
           "' gehört zu den Vorgaben und bleibt in der Liste.\nSeine Dateien werden jetzt nicht mehr "
           "verwaltet.";
}

std::string SyncRegelPrüfen(const Indexoptionen& Optionen, std::size_t Platz) {
    const SyncRegel& Regel = Optionen.SyncOrdner[Platz];
    const std::string Genannt = "Der Ordner '" + Regel.Ordner + "' ";
    if (Regel.Ordner.empty()) return "Bitte wählen Sie einen Ordner zum Synchronisieren.";
    for (std::size_t Anderer = 0; Anderer < Optionen.SyncOrdner.size(); ++Anderer) {
        if (Anderer != Platz && PfadeGleich(Optionen.SyncOrdner[Anderer].Ordner, Regel.Ordner))
            return Genannt + "steht schon in der Liste.";
    }
    const std::string& Ziel = Regel.KopierenInOrdner;
    if (!Ziel.empty() && !IstVollerPfad(Ziel))
        return "Der Ordner '" + Ziel +
               "', in den die Dateien verschoben werden sollen, ist kein vollständiger Pfad.\nBitte wählen "
               "Sie "
               "ihn mit 'Suchen...'.";
    if (PfadeGleich(Ziel, Regel.Ordner))
        return Genannt + "kann nicht zugleich der Ordner sein, in den die Dateien verschoben werden.";
    if (Regel.Unterordner == 1 && LiegtIn(Ziel, Regel.Ordner))
        return Genannt + "wird mit seinen Unterordnern einbezogen. Der Ordner '" + Ziel +
               "', in den die Dateien verschoben werden, darf deshalb nicht in ihm liegen.";
    if (!Lesbar(Regel))
        return Genannt +
               "kann nicht gespeichert werden, da sein Name zwischen zwei Kommas nur aus einer Zahl besteht "
               "oder einen Zeilenwechsel enthält.\nBitte benennen Sie den Ordner um.";
    return {};
}

std::optional<Indexoptionenfehler> IndexoptionenPrüfen(const Indexoptionen& Neu, const Indexoptionen& Alt) {
    for (std::size_t Platz = 0; Platz < Neu.SyncOrdner.size(); ++Platz) {
        if (std::ranges::find(Alt.SyncOrdner, Neu.SyncOrdner[Platz]) != Alt.SyncOrdner.end()) continue;
        std::string Meldung = SyncRegelPrüfen(Neu, Platz);
        if (!Meldung.empty()) return Indexoptionenfehler{Platz, std::move(Meldung)};
    }
    return std::nullopt;
}

void IndexoptionenÜbernehmen(Anwendung& Programm, Indexoptionen Neu) {
    Neu.SyncLeer = Neu.SyncOrdner.empty() ? 1 : 0;
    Neu.DateitypenLeer = Neu.Dateitypen.empty() ? 1 : 0;
    if (Neu == Programm.Index.Optionen) return;
    const bool Tags = Neu.SpaltenBeideTags != Programm.Index.Optionen.SpaltenBeideTags;
    const Indexoptionen Alt = std::exchange(Programm.Index.Optionen, std::move(Neu));
    RegelnEingetragen(Programm, Alt);
    Programm.Index.IndexGeändert = true;
    SpaltenAusIndex(Programm);
    // What the running search finds may hang on it.
    if (Tags) SucheErneuern(Programm);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
}

}  // namespace liedwerk
