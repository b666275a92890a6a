#include "core/startauftrag.h"

#include <filesystem>
#include <system_error>

#include "basis/oberflaeche.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::string_view NamenTrenner = "\" \"";

// The mode of a switch word; nothing loaded for any other word.
std::int16_t SchalterModus(std::string_view Wort) {
    if (GleichOhneGroß(Wort, "/dir") || Wort == "--dir") return ModusDateimanager;
    if (GleichOhneGroß(Wort, "/tag") || Wort == "--tag") return ModusTagEditor;
    return ModusNichtsGeladen;
}

// The names behind the switches: outer quotes go unless the text is a list of several quoted names.
std::vector<std::string> RestLesen(std::string_view Rest) {
    if (Rest.starts_with('"') && Rest.find(NamenTrenner) == std::string_view::npos) {
        // Kept: the last character goes whatever it is.
        Rest.remove_prefix(1);
        if (!Rest.empty()) Rest.remove_suffix(1);
        return Rest.empty() ? std::vector<std::string>() : std::vector<std::string>{std::string(Rest)};
    }
    return NamenTeilen(Rest);
}

// An argument as it would be typed: in quotes when it holds a blank.
std::string AlsEingabe(const std::string& Argument) {
    return Argument.find(' ') == std::string::npos ? Argument : "\"" + Argument + "\"";
}

bool IstHilfe(std::string_view Argument) {
    return Argument == "--hilfe" || Argument == "--help" || Argument == "-h";
}

bool IstVollerWindowsPfad(std::string_view Name) {
    const bool Buchstabe = !Name.empty() && static_cast<unsigned char>((Name[0] | 0x20) - 'a') < 26;
    return Name.starts_with("\\\\") || (Name.size() >= 3 && Buchstabe && Name.substr(1, 2) == ":\\");
}

}  // namespace

Startauftrag StartauftragLesen(const std::vector<std::string>& Argumente) {
    Startauftrag Auftrag;
    std::vector<std::string> Eingaben;
    Eingaben.reserve(Argumente.size());
    for (const auto& Argument : Argumente)
        Eingaben.push_back(AlsEingabe(Argument));
    Auftrag.Kommandozeile = Verbinden(Eingaben, " ");
    if (Argumente.empty()) return Auftrag;

    const std::string& Erstes = Argumente[0];
    Auftrag.Hilfe = IstHilfe(Erstes);
    Auftrag.Version = Erstes == "--version";
    if (Auftrag.Hilfe || Auftrag.Version) return Auftrag;

    std::size_t Stelle = 0;
    const std::size_t Leerstelle = Erstes.find(' ');
    if ((Auftrag.Programmmodus = SchalterModus(Erstes)) != ModusNichtsGeladen) {
        Stelle = 1;
    } else if (Leerstelle != std::string::npos &&
               (Auftrag.Programmmodus = SchalterModus(Erstes.substr(0, Leerstelle))) != ModusNichtsGeladen) {
        // Switch and names in one argument, as a desktop entry with quotes hands it over.
        Auftrag.Namen = RestLesen(std::string_view(Erstes).substr(Leerstelle + 1));
        Stelle = 1;
    }
    const bool NurNamen = Stelle < Argumente.size() && Argumente[Stelle] == "--";
    if (NurNamen) ++Stelle;
    for (; Stelle < Argumente.size(); ++Stelle) {
        const std::string& Wort = Argumente[Stelle];
        if (!Wort.empty()) Auftrag.Namen.push_back(Wort);
        if (!NurNamen && Wort.size() > 1 && Wort.front() == '-' && Auftrag.UnbekannteOption.empty())
            Auftrag.UnbekannteOption = Wort;
    }
    return Auftrag;
}

Startauftrag StartauftragLesen(std::string_view Kommandozeile) {
    Startauftrag Auftrag;
    Auftrag.Kommandozeile = Kommandozeile;
    std::string_view Rest = Kommandozeile;
    // A switch is its four characters and exactly one blank.
    if (Rest.size() >= 5 && Rest[4] == ' ' && Rest[0] == '/') {
        Auftrag.Programmmodus = SchalterModus(Rest.substr(0, 4));
        if (Auftrag.Programmmodus != ModusNichtsGeladen) Rest.remove_prefix(5);
    }
    if (!Rest.empty()) Auftrag.Namen = RestLesen(Rest);
    return Auftrag;
}

std::vector<std::string> NamenTeilen(std::string_view Text) {
    if (Text.empty()) return {};
    if (!Text.starts_with('"')) return {std::string(Text)};
    auto Namen = Teilen(Text, NamenTrenner);
    Namen.front().erase(0, 1);
    if (!Namen.back().empty()) Namen.back().pop_back();
    std::erase(Namen, std::string());
    return Namen;
}

std::string VollerPfad(std::string_view Name, std::string_view Arbeitsordner) {
    if (Name.empty() || IstVollerWindowsPfad(Name)) return std::string(Name);
    const std::string Ganz = IstPosixPfad(Name) ? std::string(Name) : PfadVerbinden(Arbeitsordner, Name);
    std::filesystem::path Ergebnis = "/";
    for (const auto& Teil : Teilen(Ganz, "/")) {
        std::error_code Fehler;
        if (Teil.empty() || Teil == ".") continue;
        // ".." behind a link leads elsewhere than its text says.
        if (Teil == ".." && Ergebnis.filename() != ".." && !std::filesystem::is_symlink(Ergebnis, Fehler)) {
            Ergebnis = Ergebnis.parent_path();
        } else {
            Ergebnis /= Teil;
        }
    }
    return Ergebnis.string();
}

}  // namespace liedwerk
