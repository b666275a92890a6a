#include "medien/autotag.h"

#include <algorithm>
#include <array>
#include <ranges>

#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"
#include "medien/grundfelder.h"
#include "medien/schreibweise.h"

namespace liedwerk {
namespace {

constexpr std::string_view Automatik = "%automatik%";
constexpr std::string_view FormatUnverarbeitbar =
    "Das von Ihnen zu Erkennung des TAGs verwendete Format konnte nicht verarbeitet werden.\n";

// The field that a variable fills; nullptr for "%müll%" and whatever else names none: it is thrown away.
const Grundfeld* FeldVon(std::string_view Variable) {
    const std::string_view Name = Variable.substr(1, Variable.size() - 2);
    return GrundfeldFinden(GleichOhneGroß(Name, "track") ? "Titelnummer" : Name);
}

bool IstAutomatik(std::string_view Format) {
    return BeginntMitOhneGroß(Format, Automatik);
}

bool InListe(const std::vector<std::string>& Liste, std::string_view Text) {
    return std::any_of(Liste.begin(), Liste.end(),
                       [&](const std::string& Eintrag) { return GleichOhneGroß(Eintrag, Text); });
}

// One run over one file.
class Lauf {
  public:
    Lauf(const AutoTagUmgebung& Umgebung, std::string_view Dateiname, const Datensatz& Satz, AutoTagZiel Ziel)
        : Welt(Umgebung),
          Datei(Dateiname),
          Ergebnis(Satz),
          MitV1(Ziel != AutoTagZiel::Id3v2),
          MitV2(Ziel != AutoTagZiel::Id3v1) {
        if (Welt.Werte.AutoTagAusschlußLeer == 0) Ausschluss = &Welt.Werte.AutoTagAusschluß;
        Ergebnis.TagKennung = "TAG";
        if (Welt.Werte.AutoTagFelderLöschen == 1) FelderLeeren(Satz);
    }

    // Each empty on success, else the message.
    std::string NachFormat(std::string_view Text, const AutoTagFormat& Format);
    std::string Automatisch(std::string_view Text);
    // Genre and year from what the index has of the same artist.
    void Ergänzen();
    Datensatz& Fertiges() { return Ergebnis; }

  private:
    void FelderLeeren(const Datensatz& Satz);
    void Setzen(const Grundfeld& Feld, std::string_view Text);
    void Setzen(std::string_view Feld, std::string_view Text) { Setzen(*GrundfeldFinden(Feld), Text); }
    void VariableSetzen(std::string_view Name, std::string_view Wert);
    bool IstDieseDatei(Satznummer Nummer) const;
    bool ImIndex(Tagtext Art, std::string_view Text, std::string_view Interpret);
    std::vector<std::string> InterpretenBestimmen() const;
    template <class Bedingung>
    Satznummer LetzterDerInterpreten(Bedingung&& Gilt);
    void GenreErgänzen();
    void JahrErgänzen();
    // True when this field of the record names one of the artists.
    bool NenntInterpreten(Satznummer Nummer, int Feld) const;

    static inline const std::vector<std::string> Nichts;
    const AutoTagUmgebung& Welt;
    std::string_view Datei;
    Datensatz Ergebnis;
    bool MitV1;
    bool MitV2;
    const std::vector<std::string>* Ausschluss = &Nichts;
    std::vector<std::string> Interpreten;  // whose genre and year complete the result
};

// Empties the entries of the tags to fill. What tells where a tag stands in the file, and frames that no
// entry shows, are not entries.
void Lauf::FelderLeeren(const Datensatz& Satz) {
    if (MitV1) TagBlockLeeren(Ergebnis, Tagblock::Id3v1);
    if (MitV2) TagBlockLeeren(Ergebnis, Tagblock::Id3v2);
    Ergebnis.TagKennung = "TAG";
    Ergebnis.HatId3v1 = Satz.HatId3v1;
    Ergebnis.HatId3v2 = Satz.HatId3v2;
    Ergebnis.Id3v2Version = Satz.Id3v2Version;
    Ergebnis.Id3v2Größe = Satz.Id3v2Größe;
    Ergebnis.Id3v2Position = Satz.Id3v2Position;
    Ergebnis.Id3v2Benutzt = Satz.Id3v2Benutzt;
    Ergebnis.Id3v2WeitereFelder = Satz.Id3v2WeitereFelder;
}

void Lauf::Setzen(const Grundfeld& Feld, std::string_view Text) {
    if (MitV1) GrundfeldSetzen(Ergebnis, Feld, Tagblock::Id3v1, Text);
    if (MitV2) GrundfeldSetzen(Ergebnis, Feld, Tagblock::Id3v2, Text);
}

void Lauf::VariableSetzen(std::string_view Name, std::string_view Wert) {
    const Grundfeld* const Feld = FeldVon(Name);
    if (Feld == nullptr || InListe(*Ausschluss, Wert)) return;
    if (Feld->MitSchreibweise)
        Setzen(*Feld, Schreibweise(Wert, false));
    else if (const auto Genre = GenreNummer(Wert); Feld->V1 == nullptr && Genre)
        Setzen(*Feld, GenreListe[*Genre]);
    else
        Setzen(*Feld, Wert);
}

// From the end of the name to its start, so that separators too many stay in the first value.
std::string Lauf::NachFormat(std::string_view Text, const AutoTagFormat& Format) {
    const std::size_t Anzahl = Format.Variablen.size();
    std::size_t Grenze = Text.size();
    if (const auto& Letztes = Format.Trennzeichen[Anzahl]; !Letztes.empty()) {
        const std::size_t Stelle = LetzteStelle(Grenze, Text, Letztes);
        if (Stelle == 0)
            return std::string(FormatUnverarbeitbar) + "Das letzte Trennzeichen '" + Letztes +
                   "' existiert nicht, obwohl es im Format definiert wurde.";
        Grenze = Stelle - 1;
    }
    std::vector<std::string_view> Werte(Anzahl);
    for (std::size_t i = Anzahl; i-- > 0;) {
        const auto& Davor = Format.Trennzeichen[i];
        const std::size_t Stelle = LetzteStelle(Grenze, Text, Davor);
        // Nothing in front of the first variable: its value begins with the name.
        if (i == 0 && Davor.empty()) {
            Werte[i] = Kürzen(Text.substr(0, Grenze));
            break;
        }
        if (Stelle == 0)
            return std::string(FormatUnverarbeitbar) +
                   "Der zu erkennende Dateiname enthält nicht gleich viele Elemente wie das Format (z.B. "
                   "Datei 'AB - CD.mp3' = 2 und Format '%AB% - %CD% - %EF%' = 3).";
        const std::size_t Anfang = Stelle - 1 + Davor.size();
        Werte[i] = Kürzen(Text.substr(Anfang, Grenze - Anfang));
        Grenze = Stelle - 1;
    }
    for (std::size_t i = 0; i < Anzahl; ++i)
        VariableSetzen(Format.Variablen[i], Werte[i]);
    return {};
}

bool Lauf::IstDieseDatei(Satznummer Nummer) const {
    return PfadeGleich(Welt.Index.Sätze.Pfad(Nummer), Datei);
}

// True when another tagged file of the index has this artist or album; with an artist: an album of that one.
bool Lauf::ImIndex(Tagtext Art, std::string_view Text, std::string_view Interpret) {
    const Satzspeicher& Sätze = Welt.Index.Sätze;
    Satznummer Nummer = 0;
    while ((Nummer = Welt.Verzeichnis.Nächster(Sätze, Art, Text, Nummer + 1)) != 0) {
        if (!Interpret.empty() && !Welt.Verzeichnis.Hat(Sätze, Nummer, Tagtext::Interpret, Interpret))
            continue;
        if (!IstDieseDatei(Nummer)) return true;
    }
    return false;
}

std::string Lauf::Automatisch(std::string_view Text) {
    const std::vector<std::string> Teile = NamenZerlegen(Text, *Ausschluss);
    if (Teile.empty())
        return "Der Dateiname '" + std::string(DateinameVon(Datei)) + "' konnte nicht verarbeitet werden.";
    bool MitTitelnummer = false;
    bool MitJahr = false;
    bool MitAlbum = false;
    std::string Interpret;
    // The pieces that are left for title and artist, the last one first.
    std::vector<std::string> Übrige;
    for (const std::string& Teil : std::ranges::reverse_view(Teile)) {
        const auto Wert = Zahl(Teil);
        if (Wert && !MitTitelnummer && *Wert >= 0 && *Wert <= 255) {
            MitTitelnummer = true;
            Setzen("Titelnummer", Teil);
        } else if (Wert && !MitJahr && ZeichenAnzahl(Teil) == 4) {
            MitJahr = true;
            Setzen("Jahr", Teil);
        } else if (Interpret.empty() && ImIndex(Tagtext::Interpret, Teil, {})) {
            Interpret = Schreibweise(Teil, false);
            Setzen("Interpret", Interpret);
        } else {
            if (!MitAlbum && ImIndex(Tagtext::Album, Teil, Interpret)) {
                MitAlbum = true;
                Setzen("Album", Schreibweise(Teil, false));
            }
            // Kept: a piece taken as album may still become the title.
            Übrige.push_back(Teil);
        }
    }
    if (!Übrige.empty()) Setzen("Titel", Übrige[0]);
    if (Übrige.size() > 1 && Interpret.empty()) Setzen("Interpret", Übrige[1]);
    return {};
}

// The artists of the tags to fill; these may differ where the format names none.
std::vector<std::string> Lauf::InterpretenBestimmen() const {
    std::vector<std::string> Namen;
    if (MitV1 && !Ergebnis.Interpret.empty()) Namen.push_back(Ergebnis.Interpret);
    if (MitV2 && !Ergebnis.V2Interpret.empty() && !InListe(Namen, Ergebnis.V2Interpret))
        Namen.push_back(Ergebnis.V2Interpret);
    return Namen;
}

bool Lauf::NenntInterpreten(Satznummer Nummer, int Feld) const {
    return InListe(Interpreten, Welt.Index.Sätze.Text(Nummer, Feld));
}

// The last other file of these artists for which the condition holds; 0 when there is none.
template <class Bedingung>
Satznummer Lauf::LetzterDerInterpreten(Bedingung&& Gilt) {
    const Satzspeicher& Sätze = Welt.Index.Sätze;
    Satznummer Letzter = 0;
    for (const std::string& Interpret : Interpreten) {
        Satznummer Nummer = Sätze.Anzahl() + 1;
        while ((Nummer = Welt.Verzeichnis.Voriger(Sätze, Tagtext::Interpret, Interpret, Nummer - 1)) >
               Letzter) {
            if (Gilt(Nummer) && !IstDieseDatei(Nummer)) Letzter = Nummer;
        }
    }
    return Letzter;
}

void Lauf::GenreErgänzen() {
    const bool V1Leer = MitV1 && Ergebnis.Genre.value_or(KeinGenre) == KeinGenre;
    const bool V2Leer = MitV2 && Ergebnis.V2Genre.empty();
    if (!V1Leer && !V2Leer) return;
    const Satzspeicher& Sätze = Welt.Index.Sätze;
    const Satznummer Nummer = LetzterDerInterpreten([](Satznummer) { return true; });
    if (Nummer == 0) return;
    std::uint8_t Zahlwert = KeinGenre;
    std::string Name;
    if (NenntInterpreten(Nummer, FeldInterpret)) {
        Zahlwert = static_cast<std::uint8_t>(Sätze.Zahl(Nummer, FeldGenre));
        if (Zahlwert < GenreListe.size()) Name = GenreListe[Zahlwert];
    } else {
        Name = Sätze.Text(Nummer, FeldV2Genre);
        Zahlwert = GenreNummer(GenreOhneZahl(Name)).value_or(KeinGenre);
    }
    if (V1Leer) Ergebnis.Genre = Zahlwert;
    if (V2Leer) Ergebnis.V2Genre = Name;
}

void Lauf::JahrErgänzen() {
    const bool V1Leer = MitV1 && Ergebnis.Jahr.empty();
    const bool V2Leer = MitV2 && Ergebnis.V2Jahr.empty();
    if (!V1Leer && !V2Leer) return;
    const Satzspeicher& Sätze = Welt.Index.Sätze;
    const auto JahrVon = [&](Satznummer Nummer) {
        if (NenntInterpreten(Nummer, FeldInterpret)) {
            if (std::string Jahr = Sätze.Text(Nummer, FeldJahr); !Jahr.empty()) return Jahr;
        }
        return NenntInterpreten(Nummer, FeldV2Interpret) ? Sätze.Text(Nummer, FeldV2Jahr) : std::string();
    };
    const Satznummer Nummer =
        LetzterDerInterpreten([&](Satznummer Einer) { return !JahrVon(Einer).empty(); });
    if (Nummer == 0) return;
    if (V1Leer) Ergebnis.Jahr = JahrVon(Nummer);
    if (V2Leer) Ergebnis.V2Jahr = JahrVon(Nummer);
}

void Lauf::Ergänzen() {
    // Of an unknown artist nothing can be told.
    Interpreten = InterpretenBestimmen();
    if (Interpreten.empty()) return;
    GenreErgänzen();
    JahrErgänzen();
}

constexpr std::array<std::string_view, 6> EigeneFormate = {
    "%Interpret% - %Titel%",
    "%Titelnummer% - %Interpret% - %Titel%",
    "%Interpret% - %Album% - %Titelnummer% - %Titel%",
    "%Titelnummer% - %Titel%",
    "%Titel%",
    "%Automatik%",
};
constexpr std::array<std::string_view, 8> EigeneAusschlüsse = {
    "Unbekannt",      "Unbekannter Interpret", "Unbekanntes Album", "Unknown",
    "Unknown Artist", "Unknown Album",         "Various Artists",   "Verschiedene Interpreten",
};

}  // namespace

std::string AutoTagFormatPrüfen(std::string_view Format) {
    if (Format.empty())
        return "Sie haben kein Erkennungs-Format ausgewählt.\nBitte wählen Sie eines im Fenster '" +
               std::string(AutoTagFenstertitel) + "' aus.";
    const auto Zerlegt = FormatZerlegen(Format);
    if (!Zerlegt)
        return "Das von Ihnen zu Erkennung des TAGs verwendete Format ('" + std::string(Format) +
               "') konnte nicht verarbeitet werden.\nÜberprüfen Sie die Schreibweise der Variablen "
               "('%'-Zeichen vergessen?).";
    // Kept: the last line is shown as it stands here.
    if (IstAutomatik(Format) && Zerlegt->Variablen.size() > 1)
        return "Bei Verwendung der Erkennungs-Variable '%Automatik%' können keine weiteren Variablen "
               "verwendet werden. Bitte ändern Sie das Erkennungs-Format.\n\nDer Vorgang wird "
               "abgebrochen.\", vbInformation";
    return {};
}

std::string AutoTagAusführen(const AutoTagUmgebung& Umgebung, std::string_view Dateiname,
                             std::string_view Format, Datensatz& Ergebnis, const Datensatz& Satz,
                             AutoTagZiel Ziel) {
    std::string Meldung = AutoTagFormatPrüfen(Format);
    if (!Meldung.empty()) return Meldung;
    // The name is taken last: it follows the style of the whole path.
    std::string Text(DateinameVon(DateiOhneEndung(Dateiname)));
    if (Umgebung.Werte.AutoTagUnterstrichEntfernen == 1) Text = Ersetzen(Text, "_", " ");

    Lauf Dieser(Umgebung, Dateiname, Satz, Ziel);
    Meldung =
        IstAutomatik(Format) ? Dieser.Automatisch(Text) : Dieser.NachFormat(Text, *FormatZerlegen(Format));
    if (!Meldung.empty()) return Meldung;
    Dieser.Ergänzen();
    Ergebnis = std::move(Dieser.Fertiges());
    return {};
}

std::optional<AutoTagFormat> FormatZerlegen(std::string_view Format) {
    const std::vector<std::string> Stücke = Teilen(Format, "%");
    // Odd pieces stand around the variables, even ones are their names.
    if (Stücke.size() < 3 || Stücke.size() % 2 == 0) return std::nullopt;
    AutoTagFormat Ergebnis;
    for (std::size_t i = 0; i < Stücke.size(); ++i) {
        if (i % 2 == 0)
            Ergebnis.Trennzeichen.push_back(Stücke[i]);
        else
            Ergebnis.Variablen.push_back("%" + Stücke[i] + "%");
    }
    return Ergebnis;
}

std::vector<std::string> NamenZerlegen(std::string_view Name, const std::vector<std::string>& Ausschluss) {
    if (Name.size() > 1 && Name[1] == ':') Name.remove_prefix(std::min<std::size_t>(3, Name.size()));
    std::vector<std::string> Teile;
    for (std::size_t Anfang = 0; Anfang <= Name.size();) {
        const std::size_t Ende = std::min(Name.find_first_of("-_,\\", Anfang), Name.size());
        const std::string_view Teil = Kürzen(Name.substr(Anfang, Ende - Anfang));
        if (!Teil.empty() && !InListe(Ausschluss, Teil)) Teile.emplace_back(Teil);
        Anfang = Ende + 1;
    }
    return Teile;
}

std::size_t LetzteStelle(std::size_t Grenze, std::string_view Text, std::string_view Suchtext) {
    if (Suchtext.empty()) return 0;
    // npos + 1 is 0.
    return Text.substr(0, Grenze).rfind(Suchtext) + 1;
}

std::vector<std::string> AutoTagListe(const Einstellungen& Werte) {
    if (Werte.AutoTagLeer != 0 && Werte.AutoTagFormate.empty())
        return {EigeneFormate.begin(), EigeneFormate.end()};
    return Werte.AutoTagFormate;
}

std::vector<std::string> Ausschlußliste(const Einstellungen& Werte) {
    if (Werte.AutoTagAusschlußLeer != 0 && Werte.AutoTagAusschluß.empty())
        return {EigeneAusschlüsse.begin(), EigeneAusschlüsse.end()};
    return Werte.AutoTagAusschluß;
}

void AutoTagFormatVorgeben(Einstellungen& Werte) {
    if (Werte.AutoTagAktuell.empty() && Werte.AutoTagLeer == 0 && !Werte.AutoTagFormate.empty())
        Werte.AutoTagAktuell = Werte.AutoTagFormate.front();
}

}  // namespace liedwerk
