// liedwerk-indexgenerator ZIEL ANZAHL [SAAT]: writes an index file of so many invented records.
//
// The same arguments give the same bytes everywhere. The records look like a person's collection: artists
// with albums with tracks, seven in ten with ID3v2 fields, some on a removable medium, some played. Nothing
// in it asks for a repair at load. It writes the format by itself, so that it can judge the index's own
// writer.
#include <array>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "basis/zahl.h"
#include "index/dateitypen.h"
#include "index/felder.h"
#include "index/indexformat.h"
#include "index/wert.h"
#include "werkzeuge/wortschatz.h"
#include "werkzeuge/zufall.h"

namespace liedwerk::werkzeug {
namespace {

constexpr std::size_t Schreibblock = std::size_t{1} << 20U;
constexpr std::size_t V1Länge = 30;  // bytes of an ID3v1 text

// What the tracks of an album share.
struct Albumdaten {
    std::string Künstler;
    std::string Name;
    std::string Ordner;
    std::string Medium;  // label of the removable medium, else empty
    std::string Verlag;
    int Jahr = 0;
    Genrewahl Genre{};
    bool MitV2 = true;
    int Titelanzahl = 0;
};

// The values of one record by field number, as bytes of the file. The strings keep their memory from record
// to record.
class Zeilenwerte {
  public:
    void Leeren() {
        for (std::string& Wert : Werte)
            Wert.clear();
    }
    void Setzen(int Feld, std::string_view Text) { Ort(Feld) = IndexwertSchreiben(Text); }
    void Setzen(int Feld, std::int64_t Zahl) { Ort(Feld) = std::to_string(Zahl); }
    // A text as an ID3v1 tag can hold it.
    void SetzenV1(int Feld, std::string_view Text) {
        std::string& Wert = Ort(Feld);
        Wert = IndexwertSchreiben(Text);
        if (Wert.size() > V1Länge && !Wert.starts_with('\xEF')) Wert.resize(V1Länge);
    }
    std::string& Ort(int Feld) { return Werte[static_cast<std::size_t>(Feld - 1)]; }

    void Anhängen(std::string& Ziel, bool Erweitert) const {
        const std::size_t Felder = Erweitert ? FeldAnzahl : GrundfeldAnzahl;
        Ziel += Datenzeile;
        for (std::size_t Feld = 0; Feld < Felder; ++Feld) {
            if (Feld > 0) Ziel += '/';
            if (Werte[Feld].empty()) continue;
            std::array<char, 8> Ziffern{};
            const auto Ende =
                std::to_chars(Ziffern.data(), Ziffern.data() + Ziffern.size(), Werte[Feld].size()).ptr;
            Ziel.append(Ziffern.data(), Ende);
        }
        Ziel += '|';
        for (std::size_t Feld = 0; Feld < Felder; ++Feld)
            Ziel += Werte[Feld];
        Ziel += Zeilenende;
    }

  private:
    std::array<std::string, FeldAnzahl> Werte;
};

std::string Zweistellig(int Zahl) {
    return {static_cast<char>('0' + Zahl / 10 % 10), static_cast<char>('0' + Zahl % 10)};
}

std::string Datum(Zufall& Würfel) {
    return Zweistellig(Würfel.Zahl(1, 28)) + '.' + Zweistellig(Würfel.Zahl(1, 12)) + '.' +
           std::to_string(Würfel.Zahl(2004, 2025));
}

std::string Uhrzeit(Zufall& Würfel) {
    return Zweistellig(Würfel.Zahl(0, 23)) + ':' + Zweistellig(Würfel.Zahl(0, 59)) + ':' +
           Zweistellig(Würfel.Zahl(0, 59));
}

Albumdaten AlbumBeginnen(Zufall& Würfel, const std::string& Künstler) {
    Albumdaten Album;
    Album.Künstler = Künstler;
    Album.Name = AlbumBilden(Würfel);
    Album.Jahr = Würfel.Zahl(1961, 2025);
    Album.Genre = GenreWählen(Würfel);
    Album.MitV2 = Würfel.Trifft(70);
    Album.Titelanzahl = Würfel.Zahl(8, 16);
    Album.Verlag = VerlagBilden(Würfel);
    if (Würfel.Trifft(5)) Album.Medium = "MUSIK_" + Zweistellig(Würfel.Zahl(1, 40));
    Album.Ordner =
        (Album.Medium.empty() ? std::string("/home/anna/Musik/") : "/media/anna/" + Album.Medium + '/') +
        Namensteil(Künstler) + '/' + std::to_string(Album.Jahr) + " - " + Namensteil(Album.Name) + '/';
    return Album;
}

void AudiodatenSetzen(Zeilenwerte& Werte, Zufall& Würfel) {
    constexpr std::array<int, 6> Bitraten = {128, 160, 192, 256, 320, 224};
    const int Bitrate = Würfel.Aus(Bitraten);
    const int Dauer = Würfel.Zahl(95, 420);
    const std::int64_t Größe = std::int64_t{Bitrate} * 125 * Dauer + Würfel.Zahl(128, 4096);
    Werte.Setzen(FeldGröße, Größe);
    Werte.Setzen(FeldBitrate, Bitrate);
    Werte.Setzen(FeldDauer, Dauer);
    Werte.Setzen(FeldFrequenz, 44100);
    Werte.Setzen(FeldFrames, std::int64_t{Dauer} * 44100 / 1152);
    Werte.Setzen(FeldVBR, Würfel.Trifft(30) ? 1 : 0);
    Werte.Setzen(FeldDateityp, DateiartMpeg);
    Werte.Setzen(FeldModus, Würfel.Trifft(80) ? "Joint Stereo" : "Stereo");
}

void PersönlichesSetzen(Zeilenwerte& Werte, Zufall& Würfel) {
    Werte.Setzen(FeldHinzufügeDatum, Datum(Würfel));
    const int Gespielt = Würfel.Trifft(35) ? Würfel.Zahl(1, 250) : 0;
    Werte.Setzen(FeldAbspielHäufigkeit, Gespielt);
    if (Gespielt > 0) Werte.Setzen(FeldAbspielDatum, Datum(Würfel) + ' ' + Uhrzeit(Würfel));
}

void ErweitertSetzen(Zeilenwerte& Werte, Zufall& Würfel, const Albumdaten& Album, std::string_view Titel,
                     std::string_view Nummer) {
    Werte.Setzen(FeldV2Album, Album.Name);
    Werte.Setzen(FeldV2Interpret, Album.Künstler);
    Werte.Setzen(FeldV2Titel, Titel);
    Werte.Setzen(FeldV2Genre, Album.Genre.Name);
    Werte.Setzen(FeldV2Jahr, Album.Jahr);
    Werte.Setzen(FeldV2Titelnummer, Nummer);
    if (Würfel.Trifft(50)) Werte.Setzen(FeldV2Kommentar, KommentarBilden(Würfel));
    if (Würfel.Trifft(20)) Werte.Setzen(FeldV2Songschreiber, KünstlerBilden(Würfel));
    if (Würfel.Trifft(10)) Werte.Setzen(FeldV2Länge, std::int64_t{Würfel.Zahl(95, 420)} * 1000);
    if (Würfel.Trifft(70)) Werte.Setzen(FeldV2Herausgeber, Album.Verlag);
    if (Würfel.Trifft(60)) Werte.Setzen(FeldV2Copyright, std::to_string(Album.Jahr) + ' ' + Album.Verlag);
    if (Würfel.Trifft(40)) Werte.Setzen(FeldV2EncodiertVon, "annas Rechner");
    if (Würfel.Trifft(20)) Werte.Setzen(FeldV2Link, "https://tontraeger.invalid/katalog");
    Werte.Setzen(FeldV2Software, "LAME 3.100");
    Werte.Setzen(FeldId3v2Größe, std::int64_t{Würfel.Zahl(1, 16)} * 1024 + 10);
    Werte.Setzen(FeldId3v2Version, "2.3.0");
    Werte.Ort(FeldV2Qualität) =
        Würfel.Trifft(10) ? static_cast<char>(Würfel.Zahl(1, 255)) : static_cast<char>(KeineV2Qualität);
    if (Werte.Ort(FeldV2Qualität) == "\r" || Werte.Ort(FeldV2Qualität) == "\n")
        Werte.Ort(FeldV2Qualität) = " ";
    if (Würfel.Trifft(3)) Werte.Setzen(FeldBenutzerDaten, KommentarBilden(Würfel));
    Werte.Setzen(FeldQualität, Würfel.Trifft(15) ? Würfel.Zahl(1, 10) : 0);
}

void TitelAnhängen(std::string& Ziel, Zeilenwerte& Werte, Zufall& Würfel, const Albumdaten& Album,
                   int Nummer) {
    const std::string Titel = TitelBilden(Würfel);
    const std::string Titelnummer = Zweistellig(Nummer);
    Werte.Leeren();
    Werte.Setzen(FeldPfad, Album.Ordner + Titelnummer + " - " + Namensteil(Titel) + ".mp3");
    Werte.Setzen(FeldWechselmedium, Album.Medium);
    if (!Album.MitV2 || Würfel.Trifft(85)) {
        Werte.SetzenV1(FeldAlbum, Album.Name);
        Werte.SetzenV1(FeldInterpret, Album.Künstler);
        Werte.SetzenV1(FeldTitel, Titel);
        Werte.Setzen(FeldTitelnummer, Nummer);
        Werte.Setzen(FeldJahr, Album.Jahr);
        Werte.Setzen(FeldGenre, Album.Genre.Nummer);
        if (Würfel.Trifft(15)) Werte.SetzenV1(FeldKommentar, KommentarBilden(Würfel));
    }
    AudiodatenSetzen(Werte, Würfel);
    PersönlichesSetzen(Werte, Würfel);
    if (Album.MitV2) ErweitertSetzen(Werte, Würfel, Album, Titel, Titelnummer);
    Werte.Anhängen(Ziel, Album.MitV2);
}

std::string Kopf() {
    std::string Text;
    const auto Zeile = [&Text](auto... Teile) {
        (Text.append(Teile), ...);
        Text += Zeilenende;
    };
    Zeile(IndexVersionAktuell);
    Zeile(option::SyncEntfernen, "1");
    Zeile(option::SyncNichtBei, "_INCOMPLETE_");
    for (const Dateityp& Typ : DateitypenVorgabe())
        Zeile(option::Verwalten, Typ.Eintrag, ",", Typ.Schalter);
    return Text;
}

bool Erzeugen(std::ofstream& Datei, std::int64_t Anzahl, std::uint64_t Saat) {
    Zufall Würfel(Saat);
    Zeilenwerte Werte;
    std::string Puffer = Kopf();
    std::int64_t Geschrieben = 0;
    while (Geschrieben < Anzahl) {
        const std::string Künstler = KünstlerBilden(Würfel);
        for (int Alben = Würfel.Zahl(1, 12); Alben > 0 && Geschrieben < Anzahl; --Alben) {
            const Albumdaten Album = AlbumBeginnen(Würfel, Künstler);
            for (int Nummer = 1; Nummer <= Album.Titelanzahl && Geschrieben < Anzahl;
                 ++Nummer, ++Geschrieben) {
                TitelAnhängen(Puffer, Werte, Würfel, Album, Nummer);
            }
            if (Puffer.size() < Schreibblock) continue;
            Datei.write(Puffer.data(), static_cast<std::streamsize>(Puffer.size()));
            Puffer.clear();
        }
    }
    Datei.write(Puffer.data(), static_cast<std::streamsize>(Puffer.size()));
    return static_cast<bool>(Datei.flush());
}

}  // namespace
}  // namespace liedwerk::werkzeug

int main(int Wortzahl, char** Worte) {
    using namespace liedwerk;
    const auto Anzahl = Wortzahl >= 3 ? GanzzahlLesen<std::int64_t>(Worte[2]) : std::nullopt;
    const auto Saat = Wortzahl == 4 ? GanzzahlLesen<std::int64_t>(Worte[3]) : 1;
    if (Wortzahl > 4 || !Anzahl || *Anzahl < 0 || !Saat) {
        std::cerr << "Aufruf: liedwerk-indexgenerator ZIEL ANZAHL [SAAT]\n";
        return 2;
    }
    std::ofstream Datei(Worte[1], std::ios::binary | std::ios::trunc);
    if (!Datei || !werkzeug::Erzeugen(Datei, *Anzahl, static_cast<std::uint64_t>(*Saat))) {
        std::cerr << "Die Indexdatei '" << Worte[1] << "' konnte nicht geschrieben werden.\n";
        return 1;
    }
    return 0;
}
