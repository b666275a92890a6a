// The settings file and the command lines of both programs.
#include "core/einstellungsspeicher.h"
#include "core/startauftrag.h"
#include "fuzz/ziel.h"
#include "plattform/linux/wertdatei.h"
#include "ui/text/aufruf.h"

namespace liedwerk::fuzz {
namespace {

// All settings and list entries as one text.
std::string Abzug(const Einstellungen& Werte) {
    std::string Text;
    FürJedeEinstellung(Werte, [&](std::string_view Name, const auto& Wert) {
        Text.append(Name).append("=");
        if constexpr (std::is_convertible_v<decltype(Wert), std::string_view>) {
            Text.append(Wert);
        } else {
            Text.append(std::to_string(Wert));
        }
        Text.append("\n");
    });
    FürJedeEinstellungsliste(Werte, [&](std::string_view Name, const std::vector<std::string>& Liste) {
        for (const std::string& Eintrag : Liste)
            Text.append(Name).append("+").append(Eintrag).append("\n");
    });
    return Text;
}

}  // namespace

void EinstellungenPrüfen(std::string_view Eingabe) {
    const std::string Datei = DateiLegen("einstellungen", Eingabe);
    Wertdatei Erste(Datei);
    const Einstellungen Gelesen = EinstellungenLesen(Erste, nullptr);
    Gleich("Die Einstellungen werden geschrieben", "", EinstellungenSchreiben(Gelesen, Erste));
    const std::string Einmal = DateiInhalt(Datei);

    Wertdatei Zweite(Datei);
    const Einstellungen Wieder = EinstellungenLesen(Zweite, nullptr);
    Gleich("Die Einstellungen kommen wieder", Abzug(Gelesen), Abzug(Wieder));
    Gleich("Das zweite Schreiben gelingt", "", EinstellungenSchreiben(Wieder, Zweite));
    Gleich("Das zweite Schreiben ändert nichts", Einmal, DateiInhalt(Datei));
}

void KommandozeilePrüfen(std::string_view Eingabe) {
    // One argument a line, as a system hands them over: without a NUL.
    std::vector<std::string> Argumente;
    const std::string_view Zeilen = Eingabe.substr(0, Eingabe.find('\0'));
    for (std::size_t Anfang = 0; Anfang <= Zeilen.size();) {
        const std::size_t Ende = std::min(Zeilen.find('\n', Anfang), Zeilen.size());
        Argumente.emplace_back(Zeilen.substr(Anfang, Ende - Anfang));
        Anfang = Ende + 1;
    }
    const Aufruf Gelesen = AufrufLesen(Argumente);
    Fordern(!Gelesen.Fehler.empty() || Gelesen.Gewählt != nullptr || Gelesen.Hilfe || Gelesen.Version,
            "Ein Aufruf ist ein Befehl oder ein Fehler");
    NamenslisteLesen(Argumente.front());

    for (const std::string& Name : StartauftragLesen(Argumente).Namen) {
        const std::string Voll = VollerPfad(Name, "/home/anna");
        Gleich("Ein voller Pfad bleibt, wie er ist", Voll, VollerPfad(Voll, "/anderswo"));
    }
    StartauftragLesen(Zeilen);
}

}  // namespace liedwerk::fuzz
