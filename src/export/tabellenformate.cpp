// The formats for other programs of today, all of them UTF-8.
#include <utility>

#include "basis/jsontext.h"
#include "basis/pfad.h"
#include "export/exportformate.h"
#include "index/indexformat.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

// What the list shows for a field.
void AnzeigewertLesen(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld, std::string& Wert) {
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, Index.Optionen.SpaltenBeideTags == 1, Wert, Typ);
}

struct Tabellenfeld {
    std::string Titel;
    Feldwahl Feld;
};

std::vector<Tabellenfeld> Gezeigte(const Katalog& Index, const Exportspalten& Spalten) {
    std::vector<Tabellenfeld> Reihe;
    for (const std::string& Spalte : Spalten) {
        if (!Spalte.empty()) Reihe.push_back({Exporttitel(Index, Spalte), FeldFinden(Spalte)});
    }
    return Reihe;
}

// A spreadsheet takes a text that begins so for a formula, which may start programs; a number is none.
bool WäreFormel(std::string_view Wert) {
    if (Wert.empty() || std::string_view("=+-@\t\r").find(Wert.front()) == std::string_view::npos)
        return false;
    const bool Vorzeichen = Wert.front() == '+' || Wert.front() == '-';
    return !Vorzeichen || Wert.find_first_not_of("0123456789.,", 1) != std::string_view::npos;
}

// A field of RFC 4180: in quotation marks, doubled within, where it needs them. An apostrophe in front makes
// a text of what would be a formula.
void CsvFeld(std::string& Ziel, std::string_view Wert) {
    if (WäreFormel(Wert)) {
        CsvFeld(Ziel, "'" + std::string(Wert));
        return;
    }
    const bool Blank = !Wert.empty() && (Wert.front() == ' ' || Wert.back() == ' ');
    if (!Blank && Wert.find_first_of(";\"\r\n") == std::string_view::npos) {
        Ziel += Wert;
        return;
    }
    Ziel += '"';
    for (const char Zeichen : Wert) {
        if (Zeichen == '"') Ziel += '"';
        Ziel += Zeichen;
    }
    Ziel += '"';
}

// "Interpret - Titel" by whichever tag there is; the file's name where there is none.
std::string Anzeigetitel(const Katalog& Index, Satznummer Nummer) {
    static const Feldwahl Interpret = FeldFinden("Interpret");
    static const Feldwahl Titel = FeldFinden("Titel");
    std::string Ganz;
    std::string Wert;
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Interpret, Wertform::Anzeigen, true, Ganz, Typ);
    FeldWert(Index, Nummer, Titel, Wertform::Anzeigen, true, Wert, Typ);
    if (!Ganz.empty() && !Wert.empty()) Ganz += " - ";
    Ganz += Wert;
    return Einzeilig(Ganz.empty() ? std::string(DateinameVon(Index.Sätze.Pfad(Nummer))) : Ganz);
}

}  // namespace

Exportformatierung CsvFormat(const Katalog& Index, const Exportspalten& Spalten) {
    Exportformatierung Format;
    auto Reihe = Gezeigte(Index, Spalten);
    Format.Kopf = [Reihe](std::string& Ziel) {
        for (const Tabellenfeld& Feld : Reihe) {
            if (&Feld != &Reihe.front()) Ziel += ';';
            CsvFeld(Ziel, Feld.Titel);
        }
        Ziel += Zeilenende;
    };
    Format.Satz = [&Index, Reihe = std::move(Reihe), Wert = std::string()](
                      std::string& Ziel, Satznummer Nummer, std::size_t) mutable {
        for (const Tabellenfeld& Feld : Reihe) {
            if (&Feld != &Reihe.front()) Ziel += ';';
            AnzeigewertLesen(Index, Nummer, Feld.Feld, Wert);
            CsvFeld(Ziel, Wert);
        }
        Ziel += Zeilenende;
    };
    Format.Fuß = [](std::string&) {};
    return Format;
}

Exportformatierung M3u8Format(const Katalog& Index) {
    Exportformatierung Format;
    Format.Kopf = [](std::string& Ziel) { Ziel.append("#EXTM3U").append(Zeilenende); };
    Format.Satz = [&Index](std::string& Ziel, Satznummer Nummer, std::size_t) {
        // Players take -1 for an unknown duration.
        const std::int64_t Dauer = Index.Sätze.Zahl(Nummer, FeldDauer);
        Ziel.append("#EXTINF:").append(std::to_string(Dauer > 0 ? Dauer : -1)).append(",");
        Ziel.append(Anzeigetitel(Index, Nummer)).append(Zeilenende);
        Ziel.append(Index.Sätze.Pfad(Nummer)).append(Zeilenende);
    };
    Format.Fuß = [](std::string&) {};
    return Format;
}

Exportformatierung JsonFormat(const Katalog& Index, const Exportspalten& Spalten) {
    Exportformatierung Format;
    // The field's name is the key: it is the same whatever format the user-defined column has.
    std::vector<Tabellenfeld> Reihe;
    for (const std::string& Spalte : Spalten) {
        if (!Spalte.empty()) Reihe.push_back({JsonText(Spalte), FeldFinden(Spalte)});
    }
    Format.Kopf = [](std::string& Ziel) { Ziel += "["; };
    Format.Satz = [&Index, Reihe = std::move(Reihe), Wert = std::string()](
                      std::string& Ziel, Satznummer Nummer, std::size_t Platz) mutable {
        Ziel += Platz == 0 ? "\n{" : ",\n{";
        for (const Tabellenfeld& Feld : Reihe) {
            if (&Feld != &Reihe.front()) Ziel += ',';
            AnzeigewertLesen(Index, Nummer, Feld.Feld, Wert);
            Ziel.append(Feld.Titel).append(":").append(JsonText(Wert));
        }
        Ziel += '}';
    };
    Format.Fuß = [](std::string& Ziel) { Ziel += "\n]\n"; };
    return Format;
}

}  // namespace liedwerk
