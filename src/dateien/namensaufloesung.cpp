// Which file a name in a list means.
#include <algorithm>

#include "basis/ansi.h"
#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/uri.h"
#include "dateien/playlisten.h"

namespace liedwerk {
namespace {

constexpr std::string_view BeideTrenner = "/\\";
// So many names at the end of a full path are looked for elsewhere.
constexpr std::size_t HöchstensHinten = 16;

// The bytes that may be meant by the bytes of a name, the likeliest first.
std::vector<std::string> Schreibweisen(const std::string& Name) {
    std::vector<std::string> Alle;
    if (auto Pfad = PfadAusUri(Name)) {
        Alle.push_back(std::move(*Pfad));
    } else {
        Alle.push_back(Name);
        std::string Aufgelöst = ProzentAuflösen(Name);
        if (Aufgelöst != Name && Aufgelöst.find('\0') == std::string::npos)
            Alle.push_back(std::move(Aufgelöst));
    }
    for (std::size_t Nummer = 0, Anzahl = Alle.size(); Nummer < Anzahl; ++Nummer) {
        const std::string& Eine = Alle[Nummer];
        if (IstAscii(Eine)) continue;
        if (!IstUtf8(Eine)) {
            Alle.push_back(AnsiNachUtf8(Eine));
        } else if (auto Ansi = Utf8NachAnsi(Eine)) {
            Alle.push_back(std::move(*Ansi));
        }
    }
    return Alle;
}

bool IstVoll(std::string_view Name) {
    return !Name.empty() && (Name.front() == '/' || Name.front() == '\\' ||
                             (Name.size() >= 2 && Name[1] == ':' && UriSchema(Name).empty()));
}

// The names in a path, at each of the separators; "." goes, ".." takes the name in front of it along.
std::vector<std::string> Namen(std::string_view Pfad, std::string_view Zeichen) {
    std::vector<std::string> Ergebnis;
    while (!Pfad.empty()) {
        const std::size_t Ende = std::min(Pfad.find_first_of(Zeichen), Pfad.size());
        const auto Name = Pfad.substr(0, Ende);
        Pfad.remove_prefix(std::min(Ende + 1, Pfad.size()));
        if (Name == ".." && !Ergebnis.empty() && Ergebnis.back() != "..") {
            Ergebnis.pop_back();
        } else if (!Name.empty() && Name != ".") {
            Ergebnis.emplace_back(Name);
        }
    }
    return Ergebnis;
}

// The folder with the names behind it, ".." at their beginning resolved. Empty when that leads out of the
// root.
std::string Zusammen(std::string_view Ordner, const std::vector<std::string>& Rest) {
    std::string Pfad(Ordner);
    const char Trennzeichen = Trenner(Ordner);
    for (const auto& Name : Rest) {
        if (Name == "..") {
            if (Pfad.empty() || Pfad == "/") return {};
            Pfad = PfadVon(Pfad);
        } else {
            // In place: to make each of the longer and longer paths anew takes its time with many names.
            if (!Pfad.empty() && !Pfad.ends_with(Trennzeichen)) Pfad += Trennzeichen;
            Pfad += Name;
        }
    }
    return Pfad;
}

// A name from the folder of the list.
std::vector<std::string> Relative(const std::string& Name, const std::string& Ordner) {
    if (Ordner.empty()) return {Name};
    std::vector<std::string> Orte = {Zusammen(Ordner, Namen(Name, BeideTrenner))};
    // On POSIX a backslash may belong to the name itself.
    if (IstPosixPfad(Ordner) && Name.find('\\') != std::string::npos)
        Orte.push_back(Zusammen(Ordner, Namen(Name, "/")));
    return Orte;
}

// A full path, and below the folders of the list what may be the same file there: the medium stands at
// another place here, or the list was written by another system.
std::vector<std::string> Volle(const std::string& Name, const Listenort& Ort) {
    const bool Posix = IstPosixPfad(Name);
    auto Rest = Namen(Name, Posix ? "/" : BeideTrenner);
    std::vector<std::string> Orte = {Posix ? Zusammen("/", Rest) : Name};
    if (!IstPosixPfad(Ort.Ordner)) return Orte;
    const bool MitLaufwerk = !Posix && !Rest.empty() && Rest.front().ends_with(':');
    if (MitLaufwerk) Rest.erase(Rest.begin());
    if (Rest.size() > HöchstensHinten)
        Rest.erase(Rest.begin(), Rest.end() - static_cast<std::ptrdiff_t>(HöchstensHinten));
    for (; !Rest.empty(); Rest.erase(Rest.begin())) {
        std::string Ordner = Ort.Ordner;
        while (MitTrenner(Ordner).starts_with(Ort.Laufwerk)) {
            Orte.push_back(Zusammen(Ordner, Rest));
            // A bare file name is too little to go by in the folders above.
            if (Rest.size() == 1 || Ordner == "/") break;
            Ordner = PfadVon(Ordner);
        }
    }
    return Orte;
}

}  // namespace

std::optional<Namensfund> NamenAuflösen(const Listenname& Name, const Listenort& Ort) {
    Namensfund Fund;
    for (const auto& Schreibweise : Schreibweisen(Name.Text)) {
        for (auto& Pfad :
             IstVoll(Schreibweise) ? Volle(Schreibweise, Ort) : Relative(Schreibweise, Ort.Ordner)) {
            // Without a place of its list a bare name means no file.
            if (IstVoll(Pfad) && DateiExistiert(Pfad)) return Namensfund{std::move(Pfad), true};
            if (Fund.Pfad.empty()) Fund.Pfad = std::move(Pfad);
        }
    }
    if (Name.NurVorhanden || Fund.Pfad.empty()) return std::nullopt;
    return Fund;
}

}  // namespace liedwerk
