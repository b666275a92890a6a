// The settings of the user: one plain struct and the one table that names every value, its kind and its
// default.
//
// The struct, the store (core/einstellungsspeicher), "--setze" of the command line and the tests all come
// from the table, in its order. Check-box values are compared with 1 exactly, the "...Leer" flags with "not
// 0".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// A colour that follows the desktop's palette (colour profile 1); any other value is 0xBBGGRR.
inline constexpr std::int32_t DesktopFarbe = -1;

// X(kind, name, default). Text is stored as a string, Kurz (16 bits) and Lang (32 bits) as numbers.
// Kept: the misspelled AutomtischSpeichernNurBeiEingaben is the value's true name.
// clang-format off
#define LIEDWERK_EINSTELLUNGEN(X) \
    X(Kurz, Start, 0) \
    X(Text, Dateiname, "") \
    X(Text, Mp3TagLesen, "101") \
    X(Text, WinampPfad, "") \
    X(Lang, FensterHeight, 0) \
    X(Lang, FensterLeft, 0) \
    X(Lang, FensterTop, 0) \
    X(Lang, FensterWidth, 0) \
    X(Kurz, FensterMax, 0) \
    X(Text, WinampParameterAbspielen, "") \
    X(Text, WinampParameterHinzufügen, "/ADD") \
    X(Kurz, DateiAutomatischSpeichern, 1) \
    X(Kurz, HinzufügenKeineDoppelten, 1) \
    X(Kurz, HinzufügenUnterordner, 1) \
    X(Kurz, StartBildschirm, 1) \
    X(Kurz, AutoTagFelderLöschen, 0) \
    X(Kurz, AutoTagLeer, -1) \
    X(Text, KopierenOrdner, "") \
    X(Kurz, KopierenModus, 0) \
    X(Text, ExportDatei, "") \
    X(Kurz, ExportModus, 0) \
    X(Kurz, ExportUntermodus, 0) \
    X(Kurz, ExportStriche, 1) \
    X(Kurz, PlaylistFürWinamp, 1) \
    X(Kurz, BeiDoppelklick, 0) \
    X(Text, AutoTagAktuell, "") \
    X(Kurz, TAGAutomatischSpeichern, 0) \
    X(Kurz, AutoTagUnterstrichEntfernen, 1) \
    X(Kurz, WinampLautstärke, 128) \
    X(Kurz, WinampBalance, 0) \
    X(Kurz, AutoTagAusschlußLeer, -1) \
    X(Kurz, NichtVerfügbarFragen, 1) \
    X(Lang, FarbeFunktionen, DesktopFarbe) \
    X(Lang, FarbeFunktionenHintergrund, DesktopFarbe) \
    X(Lang, FarbeListen, DesktopFarbe) \
    X(Lang, FarbeListenHintergrund, DesktopFarbe) \
    X(Lang, FarbeÜberschrift, DesktopFarbe) \
    X(Lang, FarbeBeschreibungen, DesktopFarbe) \
    X(Lang, FarbeFunktionenBesucht, DesktopFarbe) \
    X(Lang, FarbeRahmen, DesktopFarbe) \
    X(Lang, FarbeÜberschriftHintergrund, DesktopFarbe) \
    X(Kurz, FunktionenUnterstreichen, 0) \
    X(Kurz, AutoCompleteVerwenden, 1) \
    X(Text, UmbenennenEingabeID3, "%Interpret% - %Titel%") \
    X(Text, UmbenennenEingabeNeuAnfang, "") \
    X(Text, UmbenennenEingabeNeuZahl, "0") \
    X(Text, UmbenennenEingabeNeuEnde, "") \
    X(Text, UmbenennenEingabeErsetzenText, "") \
    X(Text, UmbenennenEingabeErsetzenDurch, "") \
    X(Kurz, UmbenennenEingabeSchreibweise, 0) \
    X(Text, UmbenennenEingabeDateiEndung, "mp3") \
    X(Kurz, Auswahlliste, 1) \
    X(Kurz, BeendenReaktion, 0) \
    X(Kurz, RegelmäßigSpeichernAlle, 0) \
    X(Kurz, AbspielStatistikSpeichern, 1) \
    X(Text, AutoDJFindeAnzahl, "10") \
    X(Text, AutoDJAuslassenZeit, "1") \
    X(Kurz, AutoDJAuslassenGröße, 2) \
    X(Kurz, AutoDJAuslassenVorKurzem, 0) \
    X(Kurz, AutoDJFindenVorLängerem, 0) \
    X(Kurz, SucheNichtBeiAuswahl, 1) \
    X(Kurz, SucheNichtBeiTAGEditor, 1) \
    X(Kurz, StartBildschirmNichtBeiSpeichern, 0) \
    X(Kurz, StartBildschirmNichtBeiLaden, 0) \
    X(Lang, TAGsProzentHinzufügen, 25) \
    X(Lang, TAGsBytesSuchen, 102400) \
    X(Kurz, TippsAktueller, 1) \
    X(Kurz, UmbenennenAttributeA, 0) \
    X(Kurz, UmbenennenAttributeH, 0) \
    X(Kurz, UmbenennenAttributeR, 0) \
    X(Kurz, UmbenennenAttributeS, 0) \
    X(Text, AusführenPfad, "") \
    X(Kurz, TAGAutomatischSpeichernV2, 0) \
    X(Text, UmbenennenEingabeErsetzenDateiEndung, "inanderemordner") \
    X(Lang, TAGsSoftwareFeldSchreiben, 1) \
    X(Kurz, Beschreibungsleiste, 1) \
    X(Kurz, SperreAktiv, 0) \
    X(Kurz, BackupsSpeichern, 0) \
    X(Kurz, LeereOrdnerLöschen, 1) \
    X(Kurz, AudioplayerNachrichtZeigen, 1) \
    X(Kurz, SchnellsucheZeigen, 1) \
    X(Kurz, SucheDirektStarten, 0) \
    X(Kurz, SucheNachEingabetaste, 0) \
    X(Kurz, HinzufügenZusammenfassungZeigen, 1) \
    X(Kurz, StartInTray, 0) \
    X(Kurz, AutoDJID3v1Verwenden, 1) \
    X(Kurz, AutoDJID3v2Verwenden, 0) \
    X(Kurz, GenreBevorzugteLeer, 1) \
    X(Kurz, TAGAutomatischSpeichernLyrics, 0) \
    X(Kurz, BackupsSpeichernIntervall, 12) \
    X(Kurz, BackupsSpeichernKopienBehalten, 5) \
    X(Kurz, AudioPlayerBlinken, 1) \
    X(Kurz, KopierenÜberschreiben, 0) \
    X(Kurz, KopierenStrukturÜbernehmen, 0) \
    X(Kurz, FremderIndexNachricht, 1) \
    X(Kurz, HinzufügenKopieren, 0) \
    X(Kurz, NichtVerfügbarExistierenNicht, 0) \
    X(Kurz, NichtVerfügbarNetzwerkIstWechselmedium, 1) \
    X(Text, CDDBServer, "") \
    X(Text, CDDBEmail, "name@anbieter.invalid") \
    X(Kurz, CDDBVariousErsetzen, 1) \
    X(Kurz, SucheVorschlägeErstellen, 1) \
    X(Kurz, SucheAlsWortStandard, 0) \
    X(Kurz, UmbenennenErsetzenPfadVerwenden, 0) \
    X(Kurz, ID3v2GenreZahlenEntfernen, 0) \
    X(Text, AutomtischSpeichernNurBeiEingaben, "1") \
    X(Kurz, PlayerAusblendenBeiStopp, 0) \
    X(Text, ListeFont, "Tahoma") \
    X(Kurz, ListeFontBold, 0) \
    X(Kurz, ListeFontItalic, 0) \
    X(Kurz, ListeFontUnderline, 0) \
    X(Kurz, ListeFontStrikeThrough, 0) \
    X(Lang, lngEinstellungenListeFontSize, 8) \
    X(Text, Sperre, "") \
    X(Text, AutoDJTopWieviel, "50") \
    X(Text, AutoDJTopZeitraum, "") \
    X(Text, AutoDJTopEinheit, "d") \
    X(Kurz, TAGsVerlustFragen, 1) \
    X(Kurz, TAGsModern, 0) \
    X(Kurz, FehlendeMedienZeigen, 0) \
    X(Kurz, SucheUmlauteGleich, 0) \
    X(Kurz, WeitereFormate, 0) \
    X(Kurz, SyncGeänderteLesen, 0) \
    X(Kurz, SyncBeobachten, 0) \
    X(Text, TermineIndex, "") \
    X(Text, TermineIndexPrüfsumme, "")

// X(name): lists stored as numbered values, the name followed by 1, 2, 3 and so on until a value is missing.
#define LIEDWERK_EINSTELLUNGSLISTEN(X) \
    X(AutoTagAusschluß) \
    X(AutoTagFormate) \
    X(GenreBevorzugte) \
    X(ZuletztGeladen) \
    X(GespeicherteSuche) \
    X(AutoDJGenre)
// clang-format on

struct Einstellungen {
    using Kurz = std::int16_t;
    using Lang = std::int32_t;
    using Text = std::string;
#define LIEDWERK_MITGLIED(Art, Name, Standard) Art Name = Standard;
    LIEDWERK_EINSTELLUNGEN(LIEDWERK_MITGLIED)
#undef LIEDWERK_MITGLIED
#define LIEDWERK_LISTE(Name) std::vector<std::string> Name;
    LIEDWERK_EINSTELLUNGSLISTEN(LIEDWERK_LISTE)
#undef LIEDWERK_LISTE
    bool operator==(const Einstellungen&) const = default;
};

// Calls Besuch(name, reference) for every single value in the order of the table.
template <class Satz, class Besucher>
void FürJedeEinstellung(Satz& Werte, Besucher&& Besuch) {
#define LIEDWERK_BESUCH(Art, Name, Standard) Besuch(std::string_view(#Name), Werte.Name);
    LIEDWERK_EINSTELLUNGEN(LIEDWERK_BESUCH)
#undef LIEDWERK_BESUCH
}

// Calls Besuch(name, vector reference) for every list.
template <class Satz, class Besucher>
void FürJedeEinstellungsliste(Satz& Werte, Besucher&& Besuch) {
#define LIEDWERK_BESUCH(Name) Besuch(std::string_view(#Name), Werte.Name);
    LIEDWERK_EINSTELLUNGSLISTEN(LIEDWERK_BESUCH)
#undef LIEDWERK_BESUCH
}

// True when progress displays are allowed while loading, while saving.
inline bool FortschrittBeimLaden(const Einstellungen& Werte) {
    return Werte.StartBildschirm == 1 && Werte.StartBildschirmNichtBeiLaden != 1;
}
inline bool FortschrittBeimSpeichern(const Einstellungen& Werte) {
    return Werte.StartBildschirm == 1 && Werte.StartBildschirmNichtBeiSpeichern != 1;
}

}  // namespace liedwerk
