// The formats that a list has always had.
#include "export/exportformate.h"

#include <algorithm>
#include <utility>

#include "basis/oberflaeche.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "index/felder.h"
#include "index/indexformat.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::string_view Nutzerspalte = "Benutzerdefiniert";
constexpr std::string_view Graue = "#dddddd";
constexpr std::string_view Weiße = "#ffffff";

// WertInZeichen: the value without blanks around it, between the marks; an empty one has none.
void WertInZeichen(std::string& Ziel, std::string_view Wert, std::string_view Zeichen) {
    if (Wert.empty()) return;
    Ziel += Zeichen;
    Ziel += Kürzen(Wert);
    Ziel += Zeichen;
}

// A shown slot, its name resolved once. Letzter: nothing stands behind it, not even a hidden column.
struct Platzfeld {
    std::string Titel;
    Feldwahl Feld;
    bool Letzter = false;
};

std::vector<Platzfeld> PlatzfelderBilden(const Katalog& Index, const Exportspalten& Spalten) {
    std::vector<Platzfeld> Reihe;
    for (std::size_t i = 0; i < Spalten.size(); ++i) {
        if (!Spalten[i].empty())
            Reihe.push_back(
                {Exporttitel(Index, Spalten[i]), FeldFinden(Spalten[i]), i + 1 == Spalten.size()});
    }
    return Reihe;
}

// The display form of a field, without the fall-back to the other tag.
bool WertLesen(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld, std::string& Wert) {
    Feldtyp Typ{};
    return FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, false, Wert, Typ);
}

// "Interpret - Titel" of the ID3v1 tag as one line.
std::string Tagzeile(const Katalog& Index, Satznummer Nummer) {
    return Einzeilig(Index.Sätze.Text(Nummer, FeldInterpret) + " - " + Index.Sätze.Text(Nummer, FeldTitel));
}

std::string DauerText(const Katalog& Index, Satznummer Nummer) {
    return std::to_string(Index.Sätze.Zahl(Nummer, FeldDauer));
}

bool MitTitelzeile(const Katalog& Index, Satznummer Nummer, bool FürWinamp) {
    return FürWinamp && Index.Sätze.HatId3v1(Nummer) == TagVorhanden;
}

void ZeileAnhängen(std::string& Ziel, std::string_view Text) {
    Ziel.append(Text).append(Zeilenende);
}

void HtmlKopf(std::string& Ziel, const std::vector<Platzfeld>& Reihe, std::size_t Plätze) {
    const std::string Titel(Programmtitel);
    ZeileAnhängen(Ziel, "<html><head><title>" + Titel + "-HTML-Export</title></head><body>");
    ZeileAnhängen(Ziel, "<center><font face=\"Arial\"><h2><a href=\"" + std::string(Programmadresse) + "\">" +
                            Titel + "</a>-HTML-Export</h2></font></center>");
    ZeileAnhängen(Ziel,
                  "<table border=\"0\" cellpadding=\"3\" cellspacing=\"1\" width=\"100%\" style=\"font-size: "
                  "9pt; font-family: Verdana; font-weight: bold\">");
    ZeileAnhängen(Ziel, "<tr bgcolor=" + std::string(Graue) + ">");
    for (const Platzfeld& Feld : Reihe) {
        const int Breite = static_cast<int>(100.0 / static_cast<double>(Plätze) + 0.5);
        ZeileAnhängen(Ziel, "<td width=\"" + std::to_string(Breite) + "%\">" + Feld.Titel + "</td>");
    }
    ZeileAnhängen(Ziel, "</tr>");
}

}  // namespace

Exportspalten ExportspaltenVon(const std::vector<Listenspalte>& Spalten) {
    Exportspalten Plätze;
    for (const Listenspalte& Spalte : Spalten)
        Plätze.emplace_back(Spalte.Breite > 0 ? Spaltenfeld(Spalte) : std::string_view());
    return Plätze;
}

std::string Exporttitel(const Katalog& Index, const std::string& Spalte) {
    return Spalte == Nutzerspalte ? Ersetzen(Index.Optionen.SpaltenNutzerformat, "%", "") : Spalte;
}

std::string Einzeilig(std::string Text) {
    std::ranges::replace_if(
        Text, [](char Zeichen) { return Zeichen == '\r' || Zeichen == '\n'; }, ' ');
    return Text;
}

Exportformatierung TextFormat(const Katalog& Index, const Exportspalten& Spalten,
                              std::string_view Trennzeichen, std::string_view Anführungszeichen) {
    Exportformatierung Format;
    auto Reihe = PlatzfelderBilden(Index, Spalten);
    const std::string Trenner(Trennzeichen);
    const std::string Marke(Anführungszeichen);
    Format.Kopf = [Reihe, Trenner, Marke](std::string& Ziel) {
        for (const Platzfeld& Feld : Reihe) {
            WertInZeichen(Ziel, Feld.Titel, Marke);
            // Kept: the place in the list decides, so that a hidden last column leaves a separator behind.
            if (!Feld.Letzter) Ziel += Trenner;
        }
        Ziel += Zeilenende;
    };
    Format.Satz = [&Index, Reihe = std::move(Reihe), Trenner, Marke, Wert = std::string()](
                      std::string& Ziel, Satznummer Nummer, std::size_t) mutable {
        for (const Platzfeld& Feld : Reihe) {
            WertLesen(Index, Nummer, Feld.Feld, Wert);
            if (HatZeilenende(Wert)) Wert = Einzeilig(std::move(Wert));
            WertInZeichen(Ziel, Wert, Marke);
            if (!Feld.Letzter) Ziel += Trenner;
        }
        Ziel += Zeilenende;
    };
    Format.Fuß = [](std::string&) {};
    return Format;
}

Exportformatierung HtmlFormat(const Katalog& Index, const Exportspalten& Spalten) {
    Exportformatierung Format;
    auto Reihe = PlatzfelderBilden(Index, Spalten);
    Format.Kopf = [Reihe, Plätze = Spalten.size()](std::string& Ziel) { HtmlKopf(Ziel, Reihe, Plätze); };
    Format.Satz = [&Index, Reihe = std::move(Reihe), Wert = std::string()](
                      std::string& Ziel, Satznummer Nummer, std::size_t Platz) mutable {
        Ziel.append("<tr bgcolor=").append(Platz % 2 == 0 ? Weiße : Graue).append(">").append(Zeilenende);
        for (const Platzfeld& Feld : Reihe) {
            // Kept: a value that cannot be read has no cell at all.
            if (!WertLesen(Index, Nummer, Feld.Feld, Wert)) continue;
            // Kept: a value's markup passes, so that tags may hold links. Nothing else of the program shows
            // it.
            Ziel.append("<td>").append(Wert).append("</td>").append(Zeilenende);
        }
        ZeileAnhängen(Ziel, "</tr>");
    };
    Format.Fuß = [](std::string& Ziel) { ZeileAnhängen(Ziel, "</table></body></html>"); };
    return Format;
}

// Kept: no line tells the number of entries or the version of the format.
Exportformatierung PlsFormat(const Katalog& Index, bool FürWinamp) {
    Exportformatierung Format;
    Format.Kopf = [](std::string& Ziel) { ZeileAnhängen(Ziel, "[playlist]"); };
    Format.Satz = [&Index, FürWinamp](std::string& Ziel, Satznummer Nummer, std::size_t Platz) {
        const std::string Folge = std::to_string(Platz + 1) + "=";
        ZeileAnhängen(Ziel, "File" + Folge + Index.Sätze.Pfad(Nummer));
        if (MitTitelzeile(Index, Nummer, FürWinamp))
            ZeileAnhängen(Ziel, "Title" + Folge + Tagzeile(Index, Nummer));
        ZeileAnhängen(Ziel, "Length" + Folge + DauerText(Index, Nummer));
    };
    Format.Fuß = [](std::string&) {};
    return Format;
}

Exportformatierung M3uFormat(const Katalog& Index, bool FürWinamp) {
    Exportformatierung Format;
    Format.Kopf = [FürWinamp](std::string& Ziel) {
        if (FürWinamp) ZeileAnhängen(Ziel, "#EXTM3U");
    };
    Format.Satz = [&Index, FürWinamp](std::string& Ziel, Satznummer Nummer, std::size_t) {
        if (MitTitelzeile(Index, Nummer, FürWinamp))
            ZeileAnhängen(Ziel, "#EXTINF:" + DauerText(Index, Nummer) + "," + Tagzeile(Index, Nummer));
        ZeileAnhängen(Ziel, Index.Sätze.Pfad(Nummer));
    };
    Format.Fuß = [](std::string&) {};
    return Format;
}

}  // namespace liedwerk
