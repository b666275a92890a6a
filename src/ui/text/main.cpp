// liedwerk-cli: reads the call, runs the command, tells what went wrong.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "core/anwendung.h"
#include "plattform/endesignal.h"
#include "ui/text/aufruf.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

Ausgang Zeigen(const std::string& Text) {
    Ausgabe Standardausgabe(stdout);
    Standardausgabe.Schreiben(Text);
    return Standardausgabe.Fertig() ? Ausgang::Gelungen : Ausgang::Fehlgeschlagen;
}

std::string Aufrufhinweis(const Befehl* Gewählt) {
    return Gewählt ? Aufrufzeile(*Gewählt)
                   : "Aufruf: liedwerk-cli [GLOBAL ...] BEFEHL [OPTIONEN] [ARGUMENTE]\n"
                     "'liedwerk-cli --hilfe' nennt alle Befehle.\n";
}

Ausgang Ausführen(const Aufruf& Gelesen) {
    Ausgang Ergebnis = Ausgang::FalscherAufruf;
    if (!Gelesen.Fehler.empty()) {
        Fehlermelden(Gelesen.Fehler);
    } else if (Gelesen.Version) {
        return Zeigen(ProgrammnameMitVersion() + "\n");
    } else if (Gelesen.Hilfe) {
        return Zeigen(Gelesen.Gewählt ? Hilfetext(*Gelesen.Gewählt) : Hilfetext());
    } else {
        Ergebnis = Gelesen.Gewählt->Ausführen(Gelesen.Global, Gelesen.Eingabe);
    }
    if (Ergebnis == Ausgang::FalscherAufruf) std::fputs(Aufrufhinweis(Gelesen.Gewählt).c_str(), stderr);
    return Ergebnis;
}

}  // namespace
}  // namespace liedwerk

int main(int Anzahl, char** Argumente) {
    using namespace liedwerk;
    try {
        const std::vector<std::string> Eingaben(Argumente + (Anzahl > 0 ? 1 : 0), Argumente + Anzahl);
        const Ausgang Ergebnis = Ausführen(AufrufLesen(Eingaben));
        if (!EndeVerlangt()) return static_cast<int>(Ergebnis);
        return static_cast<int>(
            Gescheitert("Der Befehl wurde durch ein Signal unterbrochen und ist vielleicht nicht vollständig "
                        "ausgeführt. Rufen Sie ihn bei Bedarf noch einmal auf."));
    } catch (const std::exception& Fehler) {
        return static_cast<int>(
            Gescheitert("Der Befehl wurde wegen eines Fehlers abgebrochen: " + std::string(Fehler.what())));
    }
}
