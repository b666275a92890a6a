#include "medien/infotext.h"

#include "basis/zahl.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::string_view DateiFehlt = "Diese Datei existiert nicht (mehr).";
constexpr std::string_view KeineInformationen = "(Keine Informationen)";
constexpr std::string_view NichtsWeiteres =
    "Für dieses Datei-Format sind keine weiteren Informationen verfügbar.";
constexpr std::string_view KeinDateiheader =
    "Kein Dateiheader gefunden - keine weiteren Informationen verfügbar";
constexpr std::string_view WeitereFelder = " Dieser enthält noch weitere, hier nicht angezeigte Felder.";

// Lines with a line feed behind each.
class Zeilen {
  public:
    void Anhängen(std::string_view Name, std::string_view Wert = {}) {
        Text.append(Name).append(Wert).push_back('\n');
    }
    void Anhängen(std::string_view Name, bool Wert) {
        Anhängen(Name, std::string_view(Wert ? "Ja" : "Nein"));
    }
    std::string Text;
};

void AllgemeinesAnhängen(std::string_view Pfad, const Datensatz& Satz, Zeilen& Info) {
    Info.Anhängen("Hinweis: Hier finden Sie einige Informationen über die gewählte Datei.");
    Info.Anhängen("Dateiname: ", Pfad);
    Info.Anhängen("Dateigröße: ", Gruppiert(Satz.Größe) + " Bytes");
    Info.Anhängen("Wechselmedium: ", Satz.Wechselmedium.empty() ? "(Keines)" : Satz.Wechselmedium);
    Info.Anhängen("Im Index seit dem: ",
                  Satz.HinzufügeDatum.empty() ? KeineInformationen : std::string_view(Satz.HinzufügeDatum));
    if (Satz.AbspielDatum.empty()) {
        Info.Anhängen("Zuletzt abgespielt: ", KeineInformationen);
    } else {
        Info.Anhängen("Zuletzt abgespielt: ", ZeitFormatieren(Satz.AbspielDatum, true) + ", insgesamt " +
                                                  std::to_string(Satz.AbspielHäufigkeit) + " Mal");
    }
}

void ModusAnhängen(const Datensatz& Satz, Zeilen& Info) {
    Info.Anhängen("Modus: ", Satz.Modus + ", " + std::to_string(Satz.Frequenz) + " Hz");
}

void BitrateAnhängen(const Datensatz& Satz, Zeilen& Info) {
    Info.Anhängen("Bitrate: ", std::to_string(Satz.Bitrate) + " kbps" + (Satz.VBR ? " VBR" : " CBR"));
}

void MpegAnhängen(const Datensatz& Satz, Zeilen& Info) {
    if (Satz.MpegVersion == 0 || Satz.MpegLayer == 0) {
        Info.Anhängen(KeinDateiheader);
        return;
    }
    Info.Anhängen("MPEG Version: ",
                  std::to_string(Satz.MpegVersion) + " Layer " + std::to_string(Satz.MpegLayer));
    ModusAnhängen(Satz, Info);
    BitrateAnhängen(Satz, Info);
    Info.Anhängen("Dauer: ", DauerFormatieren(Satz.Dauer, true));
    Info.Anhängen("Anzahl Frames: ", std::to_string(Satz.Frames));
    Info.Anhängen("Copyright: ", Satz.Copyright);
    Info.Anhängen("CRC: ", Satz.Crc);
    Info.Anhängen("Emphasis: ", Satz.Emphasis);
    Info.Anhängen("Original: ", Satz.Original);
    Info.Anhängen("Padding: ", Satz.Padding);
    Info.Anhängen("Privat: ", Satz.Privat);
}

void WeiteresFormatAnhängen(const Datensatz& Satz, Zeilen& Info) {
    if (!Satz.Modus.empty()) ModusAnhängen(Satz, Info);
    if (Satz.Bitrate > 0) BitrateAnhängen(Satz, Info);
}

void FormatAnhängen(const Datensatz& Satz, Zeilen& Info) {
    const bool NieMitDauer = Satz.Dateityp == DateiartBild || Satz.Dateityp == DateiartOgg;
    const bool ImmerMitDauer = Satz.Dateityp == DateiartWindowsMedia || Satz.Dateityp == DateiartWave;
    if (Satz.Dateityp == DateiartMpeg) {
        MpegAnhängen(Satz, Info);
        return;
    }
    if (Satz.Dateityp == DateiartWeitere) WeiteresFormatAnhängen(Satz, Info);
    if (ImmerMitDauer || (!NieMitDauer && Satz.Dauer > 0)) {
        Info.Anhängen("Dauer: ", DauerFormatieren(Satz.Dauer, true));
    }
    Info.Anhängen(NichtsWeiteres);
}

std::string Id3v1Text(const Datensatz& Satz) {
    // What other formats show in these fields, if anything, is no tag of their file.
    if (Satz.Dateityp != DateiartMpeg || Satz.HatId3v1 == TagOhneDaten) {
        return "Es wurde kein gültiger ID3v1-TAG gefunden. Angezeigt werden formatspezifische Informationen, "
               "sofern vorhanden.";
    }
    if (Satz.HatId3v1 == TagVorhanden) return "Der gefundene ID3v1-TAG belegt 128 Bytes.";
    return "Es wurde kein gültiger ID3v1-TAG oder dateispezifische Informationen gefunden.";
}

std::string Id3v2Text(const Datensatz& Satz) {
    if (Satz.HatId3v2 != TagVorhanden) return "Es wurde kein gültiger ID3v2-TAG gefunden.";
    std::string Text = "Der gefundene ID3v2-TAG belegt " + std::to_string(Satz.Id3v2Größe) +
                       " Bytes und liegt in der Version " + Satz.Id3v2Version + " vor.";
    if (!Satz.Id3v2WeitereFelder.empty()) Text += WeitereFelder;
    const std::int32_t Ungenutzt = Satz.Id3v2Benutzt < 1 ? 0 : Satz.Id3v2Größe - Satz.Id3v2Benutzt;
    return Text + " " + std::to_string(Ungenutzt) + " Bytes sind ungenutzt.";
}

std::string Lyricstext(const Datensatz& Satz) {
    if (Satz.HatLyrics != TagVorhanden) return "Es wurde kein gültiger Lyrics-TAG gefunden.";
    std::string Text = "Der gefundene Lyrics-TAG belegt " + std::to_string(Satz.LyricsGröße) +
                       " Bytes und liegt in der Version " + std::to_string(Satz.LyricsVersion) + ".0 vor.";
    // Kept: it is the version of the other tag that is looked at, so this does not normally appear.
    if (Satz.Id3v2Version == "1.0") {
        Text += " Beim nächsten Speichern wird dieser auf Version 2.0 aktualisiert.";
    }
    if (!Satz.LyricsWeitereFelder.empty()) Text += WeitereFelder;
    return Text;
}

}  // namespace

Dateiinformation DateiinformationBilden(std::string_view Pfad, const Datensatz& Satz, bool Vorhanden) {
    if (!Vorhanden) {
        const std::string Fehlt(DateiFehlt);
        return {Fehlt, Fehlt, Fehlt, Fehlt};
    }
    Zeilen Info;
    AllgemeinesAnhängen(Pfad, Satz, Info);
    FormatAnhängen(Satz, Info);
    return {std::move(Info.Text), Id3v1Text(Satz), Id3v2Text(Satz), Lyricstext(Satz)};
}

}  // namespace liedwerk
