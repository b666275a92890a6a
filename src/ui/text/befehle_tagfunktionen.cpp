// AutoTAG and the functions of the TAG editor on files.
#include <string>
#include <vector>

#include "basis/datei.h"
#include "medien/tagfunktionslauf.h"
#include "plattform/endesignal.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/satz.h"

namespace liedwerk {
namespace {

constexpr std::string_view BeideTagsAller = "Alle ID3v1- und ID3v2-TAGs";

void SatzZeigen(Programmlauf& Lauf, Satznummer Nummer, const std::string& Pfad, const Datensatz& Satz) {
    if (Lauf.Json()) {
        SatzAlsJson(Lauf.Dokument(), Nummer, Pfad, Satz);
    } else {
        SatzAlsText(Lauf.Text(), Nummer, Pfad, Satz);
    }
}

// The files of the arguments from Ab on; those that are missing are told, and Gelungen becomes false.
std::vector<Funktionsdatei> DateienLesen(Programmlauf& Lauf, const std::vector<std::string>& Argumente,
                                         std::size_t Ab, bool& Gelungen) {
    std::vector<Funktionsdatei> Dateien;
    for (const auto& Pfad :
         EingabePfade({Argumente.begin() + static_cast<std::ptrdiff_t>(Ab), Argumente.end()})) {
        const Satznummer Nummer = Lauf.SatzFinden(Pfad);
        // A file of the index may lie on a medium that is asked for.
        if (Nummer > 0 || DateiExistiert(Pfad)) {
            Dateien.push_back({Pfad, Nummer});
        } else {
            Fehlermelden("Die Datei '" + Pfad + "' wurde nicht gefunden.");
            Gelungen = false;
        }
    }
    return Dateien;
}

// Runs a function on the files of the arguments from Ab on, and shows what the files hold afterwards.
Ausgang FunktionLaufen(Programmlauf& Lauf, Funktionsauftrag Auftrag,
                       const std::vector<std::string>& Argumente, std::size_t Ab) {
    const Tagumgebung Umgebung = TagumgebungVon(Lauf.Programm());
    bool Gelungen = true;
    Auftrag.Dateien = DateienLesen(Lauf, Argumente, Ab, Gelungen);
    Auftrag.Bearbeitet = [&](const Tagarbeit& Arbeit) {
        const Tagarbeit Danach = TagarbeitBeginnen(Umgebung, Arbeit.Pfad, Arbeit.Nummer);
        SatzZeigen(Lauf, Danach.Nummer, Danach.Pfad, Danach.Satz);
    };
    if (Lauf.Json()) Lauf.Dokument().ListeAnfang();
    const auto Ergebnis = TagfunktionAusführen(Umgebung, Lauf.Programm().Tagtexte, Auftrag);
    if (Lauf.Json()) Lauf.Dokument().ListeEnde();
    const bool Alle = Ergebnis.Bearbeitet == Auftrag.Dateien.size() && Ergebnis.Gescheitert == 0;
    Gelungen = Lauf.GeändertesSpeichern() && Alle && Gelungen;
    return Lauf.Abschließen(Gelungen);
}

// The same after the questions in front of it.
Ausgang GefragtLaufen(const Globaloptionen& Global, const Funktionszeile& Funktion, Funktionsauftrag Auftrag,
                      const std::vector<std::string>& Argumente, std::size_t Ab) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLadenFallsDa()) return Ausgang::Fehlgeschlagen;
    if (!FunktionBestätigen(Lauf.Programm().Dienst.Person, Funktion, Auftrag.Auswahl))
        return Gescheitert("Die Funktion '" + std::string(Funktion.Name) +
                           "' wurde nicht ausgeführt. Mit --ja wird die Frage bejaht.");
    AutoTagFormatVorgeben(Lauf.Programm().Werte);
    return FunktionLaufen(Lauf, std::move(Auftrag), Argumente, Ab);
}

// Shows what AutoTAG makes of the names; nothing is written.
Ausgang AutoTagZeigen(Programmlauf& Lauf, const std::string& Format, AutoTagZiel Ziel,
                      const std::vector<std::string>& Argumente) {
    Anwendung& Programm = Lauf.Programm();
    const Tagumgebung Umgebung = TagumgebungVon(Programm);
    bool Gelungen = true;
    if (Lauf.Json()) Lauf.Dokument().ListeAnfang();
    for (const Funktionsdatei& Datei : DateienLesen(Lauf, Argumente, 0, Gelungen)) {
        if (EndeVerlangt()) break;
        const Datensatz Satz = TagarbeitBeginnen(Umgebung, Datei.Pfad, Datei.Nummer).Satz;
        Datensatz Ergebnis = Satz;
        const std::string Meldung = AutoTagAusführen({Programm.Index, Programm.Werte, Programm.Tagtexte},
                                                     Datei.Pfad, Format, Ergebnis, Satz, Ziel);
        if (!Meldung.empty()) {
            Fehlermelden("'" + Datei.Pfad + "': " + Meldung);
            Gelungen = false;
        }
        SatzZeigen(Lauf, Datei.Nummer, Datei.Pfad, Ergebnis);
    }
    if (Lauf.Json()) Lauf.Dokument().ListeEnde();
    return Lauf.Abschließen(Gelungen);
}

}  // namespace

Ausgang AutotagAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Format = Eingabe.Wert("--format");
    if (!Format) return Falsch("Nennen Sie das Erkennungs-Format mit --format.");
    const std::string Ziel = Eingabe.Wert("--ziel").value_or("0");
    if (Ziel != "0" && Ziel != "1" && Ziel != "2") return Falsch("'" + Ziel + "' ist kein Ziel von 0 bis 2.");
    const auto Nummer = static_cast<std::size_t>(Ziel[0] - '0');
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLadenFallsDa()) return Ausgang::Fehlgeschlagen;
    if (!Eingabe.Hat("--schreiben"))
        return AutoTagZeigen(Lauf, *Format, static_cast<AutoTagZiel>(Nummer), Eingabe.Argumente);
    Lauf.Programm().Werte.AutoTagAktuell = *Format;
    // The selections of one file in the order of the list: ID3v1, ID3v2, both.
    const Funktionsauswahl& Auswahl = Funktionsauswahlen[Nummer == 0 ? 2 : Nummer - 1];
    return FunktionLaufen(Lauf, {Tagfunktion::AutoTag, Auswahl, {}, {}}, Eingabe.Argumente, 0);
}

Ausgang TagAufräumenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const Funktionszeile& Funktion = *TagfunktionFinden("TAGs aufräumen");
    return GefragtLaufen(Global, Funktion,
                         {Funktion.Funktion, *FunktionsauswahlFinden(BeideTagsAller), {}, {}},
                         Eingabe.Argumente, 0);
}

Ausgang TagFunktionAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const Funktionszeile* const Funktion = TagfunktionFinden(Eingabe.Argumente[0]);
    const Funktionsauswahl* const Auswahl = FunktionsauswahlFinden(Eingabe.Argumente[1]);
    if (Funktion == nullptr) return Falsch("Es gibt keine Funktion '" + Eingabe.Argumente[0] + "'.");
    if (Auswahl == nullptr) return Falsch("Es gibt keine Auswahl '" + Eingabe.Argumente[1] + "'.");
    if (const std::string Grund = FunktionPrüfen(Funktion, Auswahl); !Grund.empty())
        return Gescheitert(Grund);
    if (Funktion->Funktion == Tagfunktion::AutoTagEinstellen)
        return Falsch(
            "Diese Funktion öffnet ein Fenster. Das Format stellen Sie hier mit '--setze "
            "AutoTagAktuell=FORMAT' ein.");
    Feldvorgabe Vorgabe;
    if (Funktion->Funktion == Tagfunktion::FelderKopieren) {
        Vorgabe = {GrundfeldFinden(Eingabe.Wert("--feld").value_or("")), Eingabe.Wert("--text").value_or("")};
        if (Vorgabe.Feld == nullptr || !Eingabe.Hat("--text"))
            return Falsch("Nennen Sie das Feld mit --feld und seinen Text mit --text.");
        if (const std::string Grund = FeldvorgabePrüfen(Vorgabe, *Auswahl); !Grund.empty()) {
            if (!Auswahl->Id3v2) return Gescheitert(Grund);
            Fehlermelden(Grund);
        }
    }
    return GefragtLaufen(Global, *Funktion, {Funktion->Funktion, *Auswahl, {}, Vorgabe}, Eingabe.Argumente,
                         2);
}

}  // namespace liedwerk
