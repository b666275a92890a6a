#include "cd/xmcd.h"

#include <algorithm>
#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"

namespace liedwerk {
namespace {

constexpr std::string_view Zeilenende = "\r\n";
// A line break within a value.
constexpr std::string_view Umbruch = "\\n";
constexpr std::string_view Titeltrenner = " / ";
// Bytes of a line without its end: servers refuse lines of more than 256 bytes.
constexpr std::size_t HöchsteZeile = 254;

// What the lines of one text have told so far.
class Leser {
  public:
    Leser(CDDaten& Ziel, Protokoll& Wohin) : Daten(Ziel), Log(Wohin) { Daten.AnzahlTitel = 0; }

    void Zeile(std::string_view Roh) {
        SchlüsselLesen(Roh);
        const std::string Text = Ersetzen(Roh, Umbruch, Zeilenende);
        const std::size_t Gleich = Text.find('=');
        const std::string Wert = Gleich == std::string::npos ? std::string() : Text.substr(Gleich + 1);
        if (BeginntMitOhneGroß(Text, "DTITLE=")) {
            Gesamttitel += Wert;
        } else if (BeginntMitOhneGroß(Text, "TTITLE")) {
            TitelLesen(Wert);
        } else if (BeginntMitOhneGroß(Text, "DYEAR=")) {
            Daten.Jahr = Wert;
        } else if (BeginntMitOhneGroß(Text, "DGENRE=") && !Wert.empty()) {
            Daten.Kategorie = Wert;
        } else if (BeginntMitOhneGroß(Text, "EXTD=")) {
            ErweitertLesen(Wert);
        } else if (IstNumerisch(LinkerTeil(Text, 3))) {
            StatuszeileLesen(Text);
        }
    }

    void Abschließen() {
        GesamttitelTeilen();
        if (HatErweitert) Daten.Erweitert = Erweitert;
        if (Daten.Kategorie.empty()) Daten.Kategorie = "Misc";
        constexpr std::int16_t Pop = 13;
        if (Daten.ID3Genre < 0) Daten.ID3Genre = Pop;
    }

  private:
    // A line without a key, a comment too, ends the value of the line before.
    void SchlüsselLesen(std::string_view Roh) {
        const std::size_t Gleich = Roh.starts_with('#') ? std::string_view::npos : Roh.find('=', 1);
        const std::string Hier = Falten(Gleich == std::string_view::npos ? "" : Roh.substr(0, Gleich));
        SchlüsselNeu = Hier != Schlüssel;
        Schlüssel = Hier;
    }

    void TitelLesen(std::string_view Wert) {
        const auto Anzahl = static_cast<std::size_t>(Daten.AnzahlTitel);
        if (SchlüsselNeu && !Schlüssel.empty()) {
            PlatzOffen = Anzahl < CDHöchsteTitel;
            if (!PlatzOffen) return;
            Daten.Titel[Anzahl].Titel = Wert;
            ++Daten.AnzahlTitel;
        } else if (Anzahl == 0) {
            Log.Schreiben("CDDBCDVerarbeiten: Verarbeitungsfehler bei 'TTITLE'");
        } else if (PlatzOffen) {
            Daten.Titel[Anzahl - 1].Titel += Wert;
        }
    }

    // "210 rock 8a0b2c0d ...": the reply of a server begins with the category it was asked for.
    void StatuszeileLesen(std::string_view Text) {
        const std::size_t Anfang = LinkerTeil(Text, 4).size();
        const std::size_t Ende = Text.find(' ', Anfang);
        if (Ende != std::string_view::npos) Daten.Kategorie = CDEinzeilig(Text.substr(Anfang, Ende - Anfang));
    }

    void ErweitertLesen(std::string_view Wert) {
        HatErweitert = true;
        for (const auto& Teil : Teilen(Wert, Zeilenende)) {
            const auto Genre = Angabe(Teil, "ID3G:", 4);
            const auto Jahr = Angabe(Teil, "YEAR:", 5);
            if (Genre) GenreLesen(*Genre);
            if (Jahr && IstNumerisch(*Jahr)) Daten.Jahr = *Jahr;
            if (Genre || Jahr) continue;
            if (!Erweitert.empty()) Erweitert += Zeilenende;
            Erweitert += Teil;
        }
    }

    // What stands in the next characters behind a name; nothing when the text does not hold it.
    static std::optional<std::string_view> Angabe(std::string_view Text, std::string_view Name,
                                                  std::size_t Zeichen) {
        const std::size_t Stelle = Text.find(Name);
        if (Stelle == std::string_view::npos) return std::nullopt;
        return Kürzen(LinkerTeil(Text.substr(Stelle + Name.size()), Zeichen));
    }

    // Kept: the upper bound is the number of names, one above the last genre's number.
    void GenreLesen(std::string_view Text) {
        const auto Nummer = GanzzahlLesen<std::int16_t>(Text).value_or(0);
        Daten.ID3Genre =
            Nummer >= 1 && static_cast<std::size_t>(Nummer) <= GenreListe.size() ? Nummer : std::int16_t{0};
    }

    void GesamttitelTeilen() {
        if (Gesamttitel.empty() || Gesamttitel == Titeltrenner) return;
        const std::size_t Stelle = Gesamttitel.find(Titeltrenner);
        if (Stelle == std::string::npos) {
            Log.Schreiben("CDDBCDVerarbeiten: Verarbeitungsfehler bei strAlbumName ('" +
                          CDEinzeilig(Gesamttitel) + "')");
            return;
        }
        Daten.Interpret = Gesamttitel.substr(0, Stelle);
        Daten.Album = Gesamttitel.substr(Stelle + Titeltrenner.size());
    }

    CDDaten& Daten;
    Protokoll& Log;
    std::string Schlüssel;
    bool SchlüsselNeu = false;
    bool PlatzOffen = false;  // the current title has a place
    std::string Gesamttitel;
    std::string Erweitert;
    bool HatErweitert = false;
};

// The value on one line: line breaks as they are written in xmcd.
std::string AlsWert(std::string_view Text) {
    return CDEinzeilig(Ersetzen(Ersetzen(Ersetzen(Text, Zeilenende, Umbruch), "\n", Umbruch), "\r", Umbruch));
}

// How many bytes of the text fit: whole characters, and no half of a line break's mark.
std::size_t Passend(std::string_view Text, std::size_t Platz) {
    std::size_t Ende = 0;
    for (std::size_t Stelle = 0; Stelle < Text.size(); Ende = Stelle) {
        if (Text.substr(Stelle).starts_with(Umbruch)) {
            Stelle += Umbruch.size();
        } else {
            ZeichenLesen(Text, Stelle);
        }
        if (Stelle > Platz) break;
    }
    return Ende;
}

// One line for a value, several of the same key for a long one.
void WertAnhängen(std::vector<std::string>& Zeilen, std::string_view Schlüssel, std::string_view Wert) {
    do {
        const std::size_t Länge = Passend(Wert, HöchsteZeile - Schlüssel.size() - 1);
        Zeilen.push_back(std::string(Schlüssel) + "=" + std::string(Wert.substr(0, Länge)));
        Wert.remove_prefix(Länge);
    } while (!Wert.empty());
}

// The head of the free text. A year that would not come back as it is stays in its own line alone.
std::string Jahresangabe(const CDDaten& Daten) {
    const bool Vierstellig =
        Kürzen(Daten.Jahr).size() == 4 && Daten.Jahr.size() == 4 && IstNumerisch(Daten.Jahr);
    // A number below 0 would come back as that of the first genre.
    const bool Bekannt = Daten.ID3Genre >= 0 && Daten.ID3Genre < CDOhneGenre;
    return "YEAR: " + (Vierstellig ? Daten.Jahr : std::string()) +
           " ID3G: " + std::to_string(Bekannt ? Daten.ID3Genre : CDOhneGenre);
}

// The lines of the free text share a value as long as they fit. The reader puts a line break between two
// values, so none is written there.
void ErweitertAnhängen(std::vector<std::string>& Zeilen, const CDDaten& Daten) {
    constexpr std::string_view Schlüssel = "EXTD";
    constexpr std::size_t Platz = HöchsteZeile - Schlüssel.size() - 1;
    std::string Wert = Jahresangabe(Daten);
    if (!Daten.Erweitert.empty()) {
        for (const auto& Teil : Teilen(AlsWert(Daten.Erweitert), Umbruch)) {
            if (Wert.size() + Umbruch.size() + Teil.size() > Platz) {
                WertAnhängen(Zeilen, Schlüssel, Wert);
                Wert = Teil;
            } else {
                Wert.append(Umbruch).append(Teil);
            }
        }
    }
    WertAnhängen(Zeilen, Schlüssel, Wert);
}

}  // namespace

std::string XmcdTextVonBytes(std::string_view Bytes) {
    return CDOhneSteuerzeichen(IstUtf8(Bytes) ? std::string(Bytes) : AnsiNachUtf8(Bytes));
}

std::string XmcdBytesVonText(std::string_view Text) {
    auto Ansi = Utf8NachAnsi(Text);
    return Ansi && (IstAscii(*Ansi) || !IstUtf8(*Ansi)) ? std::move(*Ansi) : std::string(Text);
}

std::vector<std::string> XmcdZeilen(std::string_view Text) {
    std::size_t EinzelneCr = 0;
    for (std::size_t Stelle = 0; Stelle < Text.size(); ++Stelle)
        EinzelneCr += Text[Stelle] == '\r' && Text.substr(Stelle + 1, 1) != "\n";
    if (EinzelneCr > static_cast<std::size_t>(std::ranges::count(Text, '\n')))
        return Teilen(Ersetzen(Ersetzen(Text, "\r\n", "\r"), "\n", "\r"), "\r");
    std::vector<std::string> Zeilen = Teilen(Text, "\n");
    for (std::string& Zeile : Zeilen) {
        Zeile.resize(Zeile.find_last_not_of('\r') + 1);
        std::ranges::replace(Zeile, '\r', ' ');
    }
    return Zeilen;
}

bool CDDBCDVerarbeiten(std::string_view Bytes, CDDaten& Daten, Protokoll& Log) {
    if (Bytes.empty()) {
        Log.Schreiben("CDDBCDVerarbeiten: Daten konnten nicht verarbeitet werden");
        return false;
    }
    Daten.Text = XmcdTextVonBytes(Bytes);
    Leser Lauf(Daten, Log);
    for (const auto& Zeile : XmcdZeilen(Daten.Text))
        Lauf.Zeile(Zeile);
    Lauf.Abschließen();
    return true;
}

std::string CDDBTextErstellen(const CDDaten& Daten, std::string_view Programm) {
    const auto Anzahl = static_cast<std::size_t>(
        std::clamp<std::int32_t>(Daten.AnzahlTitel, 0, static_cast<std::int32_t>(CDHöchsteTitel)));
    std::vector<std::string> Zeilen{"# xmcd", "#", "# Track frame offsets:"};
    for (std::size_t i = 0; i < Anzahl; ++i)
        Zeilen.push_back("#   " + std::to_string(Daten.Titel[i].Offset));
    Zeilen.insert(Zeilen.end(), {"#", "# Disc length: " + std::to_string(Daten.Gesamtdauer) + " seconds", "#",
                                 "# Revision: 0", "# Submitted via: " + std::string(Programm), "#",
                                 "DISCID=" + AlsWert(Daten.ID)});
    WertAnhängen(Zeilen, "DTITLE",
                 AlsWert(Daten.Interpret) + std::string(Titeltrenner) + AlsWert(Daten.Album));
    Zeilen.push_back("DYEAR=" + AlsWert(Daten.Jahr));
    Zeilen.push_back("DGENRE=" + AlsWert(Daten.Kategorie));
    for (std::size_t i = 0; i < Anzahl; ++i)
        WertAnhängen(Zeilen, "TTITLE" + std::to_string(i), AlsWert(Daten.Titel[i].Titel));
    ErweitertAnhängen(Zeilen, Daten);
    for (std::size_t i = 0; i < Anzahl; ++i)
        Zeilen.push_back("EXTT" + std::to_string(i) + "=");
    Zeilen.emplace_back("PLAYORDER=");
    return Verbinden(Zeilen, Zeilenende);
}

}  // namespace liedwerk
