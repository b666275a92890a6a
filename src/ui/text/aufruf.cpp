#include "ui/text/aufruf.h"

#include <algorithm>
#include <array>

#include "basis/text.h"
#include "core/einstellungsspeicher.h"
#include "ui/text/befehle.h"

namespace liedwerk {
namespace {

constexpr std::array Globalformen = {
    Optionsform{"--index", true},
    Optionsform{"--programmordner", true},
    Optionsform{"--einstellungen", true},
    Optionsform{"--setze", true},
    Optionsform{"--jetzt", true},
    Optionsform{"--ja"},
    Optionsform{"--nein"},
    Optionsform{"--json"},
    Optionsform{"--still"},
    Optionsform{"--hilfe"},
    Optionsform{"--version"},
};

template <class Formen>
const Optionsform* FormFinden(const Formen& Bekannte, std::string_view Name) {
    const auto Fund = std::find_if(Bekannte.begin(), Bekannte.end(),
                                   [Name](const Optionsform& Form) { return Form.Name == Name; });
    return Fund == Bekannte.end() ? nullptr : &*Fund;
}

// Takes a global option over; what is wrong with its value, else nothing.
std::string GlobalÜbernehmen(Aufruf& Ziel, std::string_view Name, const std::string& Wert) {
    Globaloptionen& Global = Ziel.Global;
    if (Name == "--index") Global.Index = Wert;
    if (Name == "--programmordner") Global.Programmordner = Wert;
    if (Name == "--einstellungen") Global.Einstellungen = Wert;
    if (Name == "--ja") Global.Ja = true;
    if (Name == "--nein") Global.Ja = false;
    if (Name == "--json") Global.Json = true;
    if (Name == "--still") Global.Still = true;
    if (Name == "--hilfe") Ziel.Hilfe = true;
    if (Name == "--version") Ziel.Version = true;
    if (Name == "--jetzt") {
        Global.Jetzt = DatumLesen(Wert);
        if (!Global.Jetzt) return "'" + Wert + "' ist kein Zeitpunkt der Form \"dd.mm.yyyy hh:nn:ss\".";
    }
    if (Name == "--setze") {
        const std::size_t Gleich = Wert.find('=');
        Einstellungen Probe;
        if (Gleich == std::string::npos) return "--setze erwartet NAME=WERT.";
        Global.Setzen.emplace_back(Wert.substr(0, Gleich), Wert.substr(Gleich + 1));
        // All of them, since an entry of a list may build on the one before.
        for (const auto& [Einstellung, Neu] : Global.Setzen) {
            if (!EinstellungSetzen(Probe, Einstellung, Neu) && Einstellung == Wert.substr(0, Gleich))
                return "Die Einstellung '" + Einstellung + "' gibt es nicht, oder '" + Neu +
                       "' ist kein Wert für sie.";
        }
    }
    const bool BrauchtText = Name == "--index" || Name == "--programmordner" || Name == "--einstellungen";
    return BrauchtText && Wert.empty() ? std::string(Name) + " erwartet einen Namen." : std::string();
}

// One option at Stelle, which moves to its last argument; what is wrong, else nothing.
std::string OptionLesen(Aufruf& Ziel, const std::vector<std::string>& Argumente, std::size_t& Stelle) {
    const std::string& Argument = Argumente[Stelle];
    const std::size_t Gleich = Argument.find('=');
    const std::string Name =
        Argument == "-h" || Argument == "--help" ? "--hilfe" : Argument.substr(0, Gleich);
    const Optionsform* Eigene = Ziel.Gewählt ? FormFinden(Ziel.Gewählt->Optionen, Name) : nullptr;
    const Optionsform* Form = Eigene ? Eigene : FormFinden(Globalformen, Name);
    if (!Form) return "Die Option '" + Name + "' gibt es hier nicht.";
    std::string Wert;
    if (Form->MitWert) {
        if (Gleich == std::string::npos && Stelle + 1 >= Argumente.size())
            return Name + " erwartet einen Wert.";
        Wert = Gleich == std::string::npos ? Argumente[++Stelle] : Argument.substr(Gleich + 1);
    } else if (Gleich != std::string::npos) {
        return Name + " nimmt keinen Wert.";
    }
    if (!Eigene) return GlobalÜbernehmen(Ziel, Form->Name, Wert);
    Ziel.Eingabe.Optionen.emplace_back(Eigene->Name, Wert);
    return {};
}

bool IstOption(const std::string& Argument) {
    return Argument.starts_with("--") || Argument == "-h";
}

std::string AllesLesen(Aufruf& Ziel, const std::vector<std::string>& Argumente) {
    bool NurArgumente = false;
    for (std::size_t Stelle = 0; Stelle < Argumente.size(); ++Stelle) {
        const std::string& Argument = Argumente[Stelle];
        if (!NurArgumente && Argument == "--") {
            NurArgumente = true;
        } else if (!NurArgumente && IstOption(Argument)) {
            if (auto Fehler = OptionLesen(Ziel, Argumente, Stelle); !Fehler.empty()) return Fehler;
        } else if (!Ziel.Gewählt) {
            Ziel.Gewählt = BefehlFinden(Argument);
            if (!Ziel.Gewählt) return "Den Befehl '" + Argument + "' gibt es nicht.";
        } else {
            Ziel.Eingabe.Argumente.push_back(Argument);
        }
    }
    return {};
}

std::string AnzahlPrüfen(const Aufruf& Gelesen) {
    if (!Gelesen.Gewählt) return "Es fehlt ein Befehl.";
    const std::size_t Anzahl = Gelesen.Eingabe.Argumente.size();
    if (Anzahl < Gelesen.Gewählt->Mindestens) return "Es fehlt ein Argument.";
    if (Anzahl > Gelesen.Gewählt->Höchstens) return "Es sind zu viele Argumente.";
    return {};
}

}  // namespace

bool Befehlseingabe::Hat(std::string_view Name) const {
    return Wert(Name).has_value();
}

std::optional<std::string> Befehlseingabe::Wert(std::string_view Name) const {
    const auto Fund = std::find_if(Optionen.rbegin(), Optionen.rend(),
                                   [Name](const auto& Option) { return Option.first == Name; });
    return Fund == Optionen.rend() ? std::nullopt : std::optional<std::string>(Fund->second);
}

std::vector<std::string> Befehlseingabe::AlleWerte(std::string_view Name) const {
    std::vector<std::string> Alle;
    for (const auto& [Option, Inhalt] : Optionen) {
        if (Option == Name) Alle.push_back(Inhalt);
    }
    return Alle;
}

Aufruf AufrufLesen(const std::vector<std::string>& Argumente) {
    Aufruf Ergebnis;
    Ergebnis.Global.Kommandozeile = Verbinden(Argumente, " ");
    Ergebnis.Fehler = AllesLesen(Ergebnis, Argumente);
    if (Ergebnis.Fehler.empty() && !Ergebnis.Hilfe && !Ergebnis.Version)
        Ergebnis.Fehler = AnzahlPrüfen(Ergebnis);
    return Ergebnis;
}

std::vector<std::string> NamenslisteLesen(std::string_view Text) {
    auto Namen = Teilen(Text, ",");
    std::erase(Namen, std::string());
    return Namen;
}

}  // namespace liedwerk
