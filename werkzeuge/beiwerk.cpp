#include "werkzeuge/beiwerk.h"

#include "basis/text.h"
#include "core/anwendung.h"
#include "index/spalten.h"
#include "ui/text/befehle.h"
#include "werkzeuge/befehlsbild.h"

namespace liedwerk {
namespace {

// A text for man(7): no character of it is a command there.
std::string Gesetzt(std::string_view Text) {
    std::string Ergebnis = Ersetzen(Ersetzen(Text, "\\", "\\e"), "-", "\\-");
    if (Ergebnis.starts_with('.') || Ergebnis.starts_with('\'')) Ergebnis.insert(0, "\\&");
    return Ergebnis;
}

std::string HilfeGesetzt(std::string_view Hilfe) {
    std::string Seite;
    for (const auto& [Begriff, Erklärung] : HilfeZerlegen(Hilfe)) {
        Seite += Begriff.empty() ? ".PP\n" : ".TP\n\\fB" + Gesetzt(Begriff) + "\\fR\n";
        Seite += Gesetzt(Erklärung) + "\n";
    }
    return Seite;
}

// One word for a POSIX shell and for fish.
std::string Wörtlich(std::string_view Text) {
    return "'" + Ersetzen(Text, "'", "'\\''") + "'";
}

std::string ErsterSatz(const std::string& Hilfe) {
    const std::string Zeile = Hilfe.substr(0, Hilfe.find('\n'));
    const std::size_t Ende = Zeile.find(". ");
    std::string Satz = Zeile.substr(0, Ende);
    if (Satz.ends_with('.')) Satz.pop_back();
    return Satz;
}

std::string Spaltennamen(std::string_view Trenner) {
    std::string Namen;
    for (const Spalte& Eine : SpaltenNamen)
        Namen += (Namen.empty() ? "" : std::string(Trenner)) + std::string(Eine.Name);
    return Namen;
}

// What _liedwerk_cli_art says of a place: a kind, or "werte" and the words.
std::string Artname(const Wertbild& Wert) {
    switch (Wert.Art) {
        case Wertart::Datei:
            return "dateien";
        case Wertart::Ordner:
            return "ordner";
        case Wertart::Feldname:
            return "felder";
        case Wertart::Auswahl:
            return "werte " + Verbinden(Wert.Auswahl, " ");
        case Wertart::Frei:
            break;
    }
    return "frei";
}

// A branch of a shell's "case".
std::string Zweig(const std::string& Muster, const std::string& Ausgabe) {
    return "        " + Wörtlich(Muster) + ") echo " + Wörtlich(Ausgabe) + " ;;\n";
}

std::string Fischwert(const Wertbild& Wert) {
    switch (Wert.Art) {
        case Wertart::Datei:
            return " -rF";
        case Wertart::Ordner:
            return " -xa '(__fish_complete_directories)'";
        case Wertart::Feldname:
            return " -xa '(__liedwerk_cli_felder)'";
        case Wertart::Auswahl:
            return " -xa " + Wörtlich(Verbinden(Wert.Auswahl, " "));
        case Wertart::Frei:
            break;
    }
    return " -x";
}

}  // namespace

std::string HandbuchseiteOptionen() {
    return HilfeGesetzt(BefehlsbilderLesen().front().Hilfe);
}

std::string HandbuchseiteBefehle() {
    std::string Seite;
    for (const Befehl& Eintrag : Befehle()) {
        Seite += ".SS " + Gesetzt(Eintrag.Name) + "\n.B liedwerk\\-cli\n[GLOBAL ...]\n" +
                 Gesetzt(Eintrag.Aufruf) + "\n.PP\n" + HilfeGesetzt(Eintrag.Hilfe);
    }
    return Seite;
}

std::string Schalendaten() {
    std::string Liste;
    std::string Optionen;
    std::string Arten;
    for (const Befehlsbild& Bild : BefehlsbilderLesen()) {
        std::string Namen;
        for (const Optionsbild& Option : Bild.Optionen) {
            Namen += (Namen.empty() ? "" : " ") + Option.Name;
            if (Option.MitWert) Arten += Zweig(Bild.Name + " " + Option.Name, Artname(Option.Wert));
        }
        Optionen += Zweig(Bild.Name, Namen);
        if (Bild.Name.empty()) continue;
        Liste += Bild.Name + ":" + ErsterSatz(Bild.Hilfe) + "\n";
        Arten += Zweig(Bild.Name + " ", Artname(Bild.Argument));
    }
    return "_liedwerk_cli_befehle() {\n    cat <<'ENDE'\n" + Liste + "ENDE\n}\n" +
           "_liedwerk_cli_felder() {\n    cat <<'ENDE'\n" + Spaltennamen("\n") + "\nENDE\n}\n" +
           "# _liedwerk_cli_optionen BEFEHL; without a command the global ones\n" +
           "_liedwerk_cli_optionen() {\n    case \"$1\" in\n" + Optionen + "    esac\n}\n" +
           "# _liedwerk_cli_art 'BEFEHL OPTION', 'BEFEHL ' for its argument, ' OPTION' for a global one\n" +
           "_liedwerk_cli_art() {\n    case \"$1\" in\n" + Arten + "    esac\n}\n";
}

std::string Fischdaten() {
    std::string Befehlsnamen;
    std::string Zeilen;
    for (const Befehlsbild& Bild : BefehlsbilderLesen()) {
        std::string Bedingung;
        if (!Bild.Name.empty()) {
            Befehlsnamen += (Befehlsnamen.empty() ? "" : " ") + Bild.Name;
            Bedingung = " -n '__fish_seen_subcommand_from " + Bild.Name + "'";
            Zeilen += "complete -c liedwerk-cli -n __liedwerk_cli_ohne_befehl -xa " + Wörtlich(Bild.Name) +
                      " -d " + Wörtlich(ErsterSatz(Bild.Hilfe)) + "\n";
            if (Bild.Argument.Art != Wertart::Datei)
                Zeilen += "complete -c liedwerk-cli" + Bedingung +
                          (Bild.Argument.Art == Wertart::Frei ? " -f" : Fischwert(Bild.Argument)) + "\n";
        }
        for (const Optionsbild& Option : Bild.Optionen) {
            Zeilen += "complete -c liedwerk-cli" + Bedingung + " -l " + Option.Name.substr(2) +
                      (Option.MitWert ? Fischwert(Option.Wert) : "") + "\n";
        }
    }
    return "function __liedwerk_cli_felder\n    printf '%s\\n' " + Spaltennamen(" ") +
           "\nend\nfunction __liedwerk_cli_ohne_befehl\n    not __fish_seen_subcommand_from " + Befehlsnamen +
           "\nend\n" + Zeilen;
}

std::string VorlageFüllen(std::string Vorlage) {
    Vorlage = Ersetzen(Vorlage, "@OPTIONEN@\n", HandbuchseiteOptionen());
    Vorlage = Ersetzen(Vorlage, "@BEFEHLE@\n", HandbuchseiteBefehle());
    Vorlage = Ersetzen(Vorlage, "@SCHALENDATEN@\n", Schalendaten());
    Vorlage = Ersetzen(Vorlage, "@FISCHDATEN@\n", Fischdaten());
    return Ersetzen(Vorlage, "@VERSION@", ProgrammnameMitVersion());
}

}  // namespace liedwerk
