#include "core/listenlauf.h"

#include <algorithm>
#include <optional>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "dateien/ordnersuche.h"

namespace liedwerk {
namespace {

// Where a list lies on the disk; the clipboard lies nowhere.
Listenort OrtVon(Anwendung& Programm, const std::string& Datei) {
    if (Datei.empty()) return {};
    return {std::string(PfadVon(Datei)), LaufwerkDesPfades(MediumumgebungVon(Programm), Datei)};
}

// In any text many a line is no file name: those of managed files count, and what goes its own way.
bool Brauchbar(const Anwendung& Programm, const Namensfund& Fund) {
    return DateiTypErlaubt(Programm.Index.Optionen.Dateitypen, Fund.Pfad, false, false, false, true) ||
           IstPlayliste(Fund.Pfad) || (IstPosixPfad(Fund.Pfad) && OrdnerExistiert(Fund.Pfad));
}

// The files that the bytes of a list name; nothing when the person cancelled.
std::optional<Namensfunde> NamenSuchen(Anwendung& Programm, std::string_view Bytes, Listenart Art,
                                       const std::string& Quelle) {
    const bool ZuGroß = Bytes.size() > ListeHöchstens;
    if (ZuGroß) Bytes = Bytes.substr(0, ListeHöchstens);
    const Listenort Ort = OrtVon(Programm, Quelle);
    Namensfunde Funde{Quelle, {}, 0, 0, false};
    Oberfläche& Person = Programm.Dienst.Person;
    if (Programm.Werte.StartBildschirm == 1)
        Person.FortschrittStarten("Suche die Dateien der Liste", true,
                                  static_cast<std::int64_t>(Bytes.size()));
    bool Abgebrochen = false;
    std::uint64_t Pfadbytes = 0;
    const auto Bilanz = ListeZerlegen(Bytes, Art, [&](const Listenname& Name, std::size_t Gelesen) {
        Abgebrochen = !Person.FortschrittZeigen({}, static_cast<std::int64_t>(Gelesen));
        if (Abgebrochen) return false;
        auto Fund = NamenAuflösen(Name, Ort);
        if (!Fund || (Art == Listenart::Namen && !Brauchbar(Programm, *Fund))) return true;
        Pfadbytes += Fund->Pfad.size();
        Funde.Zeilen.push_back(std::move(*Fund));
        return Pfadbytes <= FundeHöchstens;
    });
    Person.FortschrittSchließen();
    Funde.Ströme = Bilanz.Ströme;
    Funde.ZuLang = Bilanz.ZuLang;
    Funde.Gekürzt = ZuGroß || Bilanz.Gekürzt || Pfadbytes > FundeHöchstens;
    return Abgebrochen ? std::nullopt : std::optional(std::move(Funde));
}

std::optional<Namensfunde> ListeLesen(Anwendung& Programm, const std::string& Datei, Listenart Art) {
    Dateifehler Fehler;
    const Lesedatei Offen = Lesedatei::Öffnen(Datei, &Fehler);
    if (!Offen.Offen()) {
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                      "Die Datei '" + Datei + "' kann nicht gelesen werden.\n" + Fehler.Text +
                                          "\n\n" + std::string(ZugriffsHinweis));
        return std::nullopt;
    }
    // One byte more tells that there is more.
    return NamenSuchen(Programm, Offen.Lesen(0, ListeHöchstens + 1), Art, Datei);
}

// What the person should know about a list, whose summary was not shown; empty when all is well.
std::string Bilanz(const Namensfunde& Funde) {
    const std::string Liste = Funde.Quelle.empty() ? "die Zwischenablage" : "'" + Funde.Quelle + "'";
    std::string Text;
    const auto Zeile = [&Text](std::size_t Anzahl, std::string_view Was) {
        if (Anzahl > 0) Text += "\n" + std::to_string(Anzahl) + std::string(Was);
    };
    constexpr std::size_t Höchstens = 10;
    std::size_t Fehlend = 0;
    std::string Namen;
    for (const auto& Eine : Funde.Zeilen) {
        if (!Eine.Existiert && ++Fehlend <= Höchstens) Namen += "\n" + Eine.Pfad;
    }
    Zeile(Funde.Ströme, " Internet-Adresse(n) wurden übergangen, da sie keine Dateien sind.");
    Zeile(Funde.ZuLang, " Zeile(n) wurden übergangen, da sie keinen Dateinamen enthalten können.");
    if (Funde.Gekürzt) Text += "\nDie Liste ist zu lang; nur ihr Anfang wurde gelesen.";
    Zeile(Fehlend, " Datei(en) wurden nicht gefunden:");
    if (Fehlend > 0) Text += Namen + (Fehlend > Höchstens ? "\n..." : "");
    return Text.empty() ? Text : "Hinweise über " + Liste + ":" + Text;
}

// True when the rows shall be added: the person agreed, or need not be asked.
bool Einverstanden(Anwendung& Programm, Namensfunde& Funde) {
    const bool Fragen = Programm.Werte.HinzufügenZusammenfassungZeigen == 1 && Programm.ZusammenfassungZeigen;
    if (Fragen && !Funde.Zeilen.empty()) return Programm.ZusammenfassungZeigen(Funde);
    std::string Text = Bilanz(Funde);
    if (Text.empty() && Funde.Zeilen.empty()) {
        const std::string Ort =
            Funde.Quelle.empty() ? "In der Zwischenablage" : "In der Datei '" + Funde.Quelle + "'";
        Text = Ort + " wurden keine Dateinamen gefunden.";
    }
    if (!Text.empty()) Programm.Dienst.Person.Melden(Symbol::Information, Text);
    return true;
}

std::vector<std::string> Vorhandene(const Namensfunde& Funde) {
    std::vector<std::string> Pfade;
    for (const auto& Zeile : Funde.Zeilen) {
        if (Zeile.Existiert) Pfade.push_back(Zeile.Pfad);
    }
    return Pfade;
}

Satznummer ListeHinzufügen(Anwendung& Programm, const std::string& Datei, Listenart Art,
                           const Hinzufügefolgen& Folgen) {
    const Laufsperre Sperre(Programm);
    auto Funde = ListeLesen(Programm, Datei, Art);
    if (!Funde || !Einverstanden(Programm, *Funde)) return -1;
    return DateienHinzufügenLauf(Programm, Vorhandene(*Funde), Folgen, true);
}

}  // namespace

Satznummer PlaylistLesen(Anwendung& Programm, const std::string& Datei, const Hinzufügefolgen& Folgen) {
    return ListeHinzufügen(Programm, Datei, PlaylistenArt(Datei), Folgen);
}

Satznummer DateiMitDateinamenLesen(Anwendung& Programm, const std::string& Datei,
                                   const Hinzufügefolgen& Folgen) {
    return ListeHinzufügen(Programm, Datei, Listenart::Namen, Folgen);
}

Satznummer ZwischenablageHinzufügen(Anwendung& Programm, std::string_view Text) {
    const Laufsperre Sperre(Programm);
    auto Funde = NamenSuchen(Programm, Text, Listenart::Namen, {});
    if (!Funde) return -1;
    for (auto& Zeile : Funde->Zeilen)
        Zeile.Existiert = Zeile.Existiert || (IstPosixPfad(Zeile.Pfad) && OrdnerExistiert(Zeile.Pfad));
    if (!Einverstanden(Programm, *Funde)) return -1;
    return DragDropVerarbeiten(Programm, Vorhandene(*Funde));
}

bool NichtGefundeneSuchen(Anwendung& Programm, const std::string& Ordner, Namensfunde& Funde) {
    const Laufsperre Sperre(Programm);
    Oberfläche& Person = Programm.Dienst.Person;
    if (Programm.Werte.StartBildschirm == 1) Person.FortschrittStarten("Durchsuche Ordner", false, 0);
    std::vector<std::string> FundListe;
    Ordnersuche Suche;
    Suche.Unterordner = true;
    const bool Weiter = DateienSuchenAPI(Programm.Dienst.Ordner, Ordner, Suche, &Person, FundListe);
    Person.FortschrittSchließen();
    if (!Weiter) return false;
    if (FundListe.empty()) {
        Person.Melden(Symbol::Information,
                      "Es konnte keine Dateien in dem angegebenen Ordner gefunden werden.\n"
                      "Die Funktion wurde beendet.");
        return false;
    }
    const auto Ergebnis = NamenKorrigieren(Funde, FundListe);
    Person.Melden(Symbol::Information, std::to_string(Ergebnis.Fehlend) +
                                           " Dateien wurden nicht gefunden, davon wurden " +
                                           std::to_string(Ergebnis.Korrigiert) + " korrigiert.");
    return Ergebnis.Korrigiert > 0;
}

}  // namespace liedwerk
