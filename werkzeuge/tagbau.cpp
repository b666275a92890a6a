#include "werkzeuge/tagbau.h"

#include <algorithm>
#include <array>

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk::tagbau {
namespace {

// Bit rates of Layer III in kbit/s: MPEG 1, then MPEG 2 and 2.5.
constexpr std::array<std::array<unsigned, 16>, 2> BitratenLayer3 = {{
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
}};
// Sampling frequencies by version code.
constexpr std::array<std::array<unsigned, 4>, 4> Frequenzen = {{
    {11025, 12000, 8000, 0},
    {0, 0, 0, 0},
    {22050, 24000, 16000, 0},
    {44100, 48000, 32000, 0},
}};

std::string Aufgefüllt(std::string_view Text, std::size_t Länge, char Füllung) {
    std::string Feld(Text.substr(0, Länge));
    Feld.resize(Länge, Füllung);
    return Feld;
}

std::string Ziffern(std::size_t Wert, std::size_t Breite) {
    return NullenVoran(std::to_string(Wert), Breite);
}

std::string SiebenBitGröße(std::size_t Wert) {
    std::string Bytes;
    for (int Stelle = 3; Stelle >= 0; --Stelle) {
        Bytes.push_back(static_cast<char>((Wert >> (7 * Stelle)) & 0x7F));
    }
    return Bytes;
}

// The check sum of an Ogg page (RFC 3533): polynomial 04C11DB7, not reflected, starting at 0.
std::uint32_t OggPrüfsumme(std::string_view Seite) {
    std::uint32_t Summe = 0;
    for (const char Zeichen : Seite) {
        Summe ^= static_cast<std::uint32_t>(static_cast<unsigned char>(Zeichen)) << 24;
        for (int Bit = 0; Bit < 8; ++Bit) {
            Summe = (Summe << 1) ^ ((Summe & 0x80000000U) != 0 ? 0x04C11DB7U : 0U);
        }
    }
    return Summe;
}

// One page that holds the packets whole; together they have at most 255 segments.
std::string OggSeite(int Art, std::uint32_t Nummer, const std::vector<std::string>& Pakete) {
    std::string Längen;
    std::string Inhalt;
    for (const std::string& Paket : Pakete) {
        Längen.append(Paket.size() / 255, '\xFF');
        Längen.push_back(static_cast<char>(Paket.size() % 255));
        Inhalt += Paket;
    }
    std::string Seite = "OggS";
    Seite.push_back('\0');
    Seite.push_back(static_cast<char>(Art));
    Seite += KleinesEnde(0, 8) + KleinesEnde(4711, 4) + KleinesEnde(Nummer, 4) + KleinesEnde(0, 4);
    Seite.push_back(static_cast<char>(Längen.size()));
    Seite += Längen + Inhalt;
    constexpr std::size_t StellePrüfsumme = 22;
    return Seite.replace(StellePrüfsumme, 4, KleinesEnde(OggPrüfsumme(Seite), 4));
}

}  // namespace

std::string AnsiText(std::string_view Text) {
    return Utf8NachAnsiErsatz(Text);
}

std::string Utf16Text(std::string_view Text) {
    std::string Bytes = "\xFF\xFE";
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        if (Zeichen < 0x10000) {
            Bytes += KleinesEnde(Zeichen, 2);
        } else {
            Bytes += KleinesEnde(0xD800 + ((Zeichen - 0x10000) >> 10), 2);
            Bytes += KleinesEnde(0xDC00 + ((Zeichen - 0x10000) & 0x3FF), 2);
        }
    }
    return Bytes;
}

std::string GroßesEnde(std::uint64_t Wert, int Bytes) {
    std::string Ergebnis = KleinesEnde(Wert, Bytes);
    std::reverse(Ergebnis.begin(), Ergebnis.end());
    return Ergebnis;
}

std::string KleinesEnde(std::uint64_t Wert, int Bytes) {
    std::string Ergebnis;
    for (int Stelle = 0; Stelle < Bytes; ++Stelle) {
        Ergebnis.push_back(static_cast<char>((Wert >> (8 * Stelle)) & 0xFF));
    }
    return Ergebnis;
}

std::string KopfBytes(const Rahmenkopf& Kopf) {
    const auto Bit = [](bool Gesetzt, unsigned Stelle) { return Gesetzt ? 1U << Stelle : 0U; };
    return GroßesEnde(0xFFE00000U | Kopf.Version << 19 | Kopf.Layer << 17 | Bit(Kopf.OhnePrüfsumme, 16) |
                          Kopf.Bitratenindex << 12 | Kopf.Frequenzindex << 10 | Bit(Kopf.Padding, 9) |
                          Bit(Kopf.Privat, 8) | Kopf.Modus << 6 | Bit(Kopf.Copyright, 3) |
                          Bit(Kopf.Original, 2) | Kopf.Emphasis,
                      4);
}

std::size_t Rahmenlänge(const Rahmenkopf& Kopf) {
    const bool Mpeg1 = Kopf.Version == 3;
    const unsigned Bitrate = BitratenLayer3[Mpeg1 ? 0 : 1][Kopf.Bitratenindex & 15];
    const unsigned Frequenz = Frequenzen[Kopf.Version & 3][Kopf.Frequenzindex & 3];
    if (Bitrate == 0 || Frequenz == 0) return 0;
    return (Mpeg1 ? 144000U : 72000U) * Bitrate / Frequenz + (Kopf.Padding ? 1 : 0);
}

std::string MpegRahmen(const Rahmenkopf& Kopf, std::size_t Anzahl) {
    const std::string Rahmen = Aufgefüllt(KopfBytes(Kopf), std::max<std::size_t>(Rahmenlänge(Kopf), 4), '\0');
    std::string Bytes;
    Bytes.reserve(Rahmen.size() * Anzahl);
    for (std::size_t Nummer = 0; Nummer < Anzahl; ++Nummer) {
        Bytes += Rahmen;
    }
    return Bytes;
}

std::string XingRahmen(const Rahmenkopf& Kopf, std::uint32_t Rahmenzahl) {
    // Flags 1: the number of frames is there.
    const std::string Angaben = "Xing" + GroßesEnde(1, 4) + GroßesEnde(Rahmenzahl, 4);
    std::string Rahmen = MpegRahmen(Kopf, 1);
    Rahmen.resize(std::max<std::size_t>(Rahmen.size(), 36 + Angaben.size()));
    return Rahmen.replace(36, Angaben.size(), Angaben);
}

std::string Id3v1Block(const Id3v1Angaben& Angaben) {
    std::string Block = "TAG";
    for (const auto* Feld : {&Angaben.Titel, &Angaben.Interpret, &Angaben.Album}) {
        Block += Aufgefüllt(*Feld, 30, Angaben.Füllung);
    }
    Block += Aufgefüllt(Angaben.Jahr, 4, Angaben.Füllung);
    if (Angaben.Titelnummer > 0) {
        Block += Aufgefüllt(Angaben.Kommentar, 28, Angaben.Füllung);
        Block.push_back('\0');
        Block.push_back(static_cast<char>(Angaben.Titelnummer));
    } else {
        Block += Aufgefüllt(Angaben.Kommentar, 30, Angaben.Füllung);
    }
    Block.push_back(static_cast<char>(Angaben.Genre));
    return Block;
}

std::string Id3v2Rahmen(std::string_view Kennung, std::string_view Wert, bool SiebenBit) {
    std::string Rahmen(Kennung);
    if (Kennung.size() == 3) return Rahmen + GroßesEnde(Wert.size(), 3) + std::string(Wert);
    Rahmen += SiebenBit ? SiebenBitGröße(Wert.size()) : GroßesEnde(Wert.size(), 4);
    return Rahmen + std::string(2, '\0') + std::string(Wert);
}

std::string Id3v2Textrahmen(std::string_view Kennung, std::string_view Text, bool Utf16, bool SiebenBit) {
    std::string Wert(1, Utf16 ? '\1' : '\0');
    Wert += Utf16 ? Utf16Text(Text) : AnsiText(Text);
    return Id3v2Rahmen(Kennung, Wert, SiebenBit);
}

std::string Id3v2Tag(int Hauptversion, std::string_view Inhalt, std::size_t Padding, int Schalter) {
    std::string Angaben;
    Angaben.push_back(static_cast<char>(Hauptversion));
    Angaben.push_back('\0');
    Angaben.push_back(static_cast<char>(Schalter));
    Angaben += SiebenBitGröße(Inhalt.size() + Padding);
    std::string Tag = "ID3" + Angaben + std::string(Inhalt) + std::string(Padding, '\0');
    if ((Schalter & 0x10) != 0) Tag += "3DI" + Angaben;
    return Tag;
}

std::string LyricsV1(std::string_view Text) {
    return "LYRICSBEGIN" + std::string(Text) + "LYRICSEND";
}

std::string LyricsFeld(std::string_view Kennung, std::string_view Wert) {
    return std::string(Kennung) + Ziffern(Wert.size(), 5) + std::string(Wert);
}

std::string LyricsV2(std::string_view Felder) {
    const std::string Anfang = "LYRICSBEGIN" + std::string(Felder);
    return Anfang + Ziffern(Anfang.size(), 6) + "LYRICS200";
}

std::string WaveDatei(std::uint32_t Frequenz, std::uint16_t Kanäle, std::uint16_t Bits,
                      std::size_t Datenbytes, std::uint32_t Formatlänge) {
    const std::uint32_t Abtastbytes = Kanäle * (Bits / 8U);
    std::string Format = KleinesEnde(1, 2) + KleinesEnde(Kanäle, 2) + KleinesEnde(Frequenz, 4) +
                         KleinesEnde(std::uint64_t{Frequenz} * Abtastbytes, 4) + KleinesEnde(Abtastbytes, 2) +
                         KleinesEnde(Bits, 2);
    Format.resize(Formatlänge);
    const std::string Inhalt = "WAVEfmt " + KleinesEnde(Formatlänge, 4) + Format + "data" +
                               KleinesEnde(Datenbytes, 4) + std::string(Datenbytes, '\0');
    return "RIFF" + KleinesEnde(Inhalt.size(), 4) + Inhalt;
}

std::string OggDatei(const std::vector<std::string>& Kommentare, std::size_t Datenbytes) {
    const std::string Kennung = "\x01vorbis" + KleinesEnde(0, 4) + "\x02" + KleinesEnde(44100, 4) +
                                KleinesEnde(0, 4) + KleinesEnde(128000, 4) + KleinesEnde(0, 4) + "\xB8\x01";
    const std::string Hersteller = "Liedwerk";
    std::string Kopf =
        "\x03vorbis" + KleinesEnde(Hersteller.size(), 4) + Hersteller + KleinesEnde(Kommentare.size(), 4);
    for (const std::string& Kommentar : Kommentare) {
        Kopf += KleinesEnde(Kommentar.size(), 4) + Kommentar;
    }
    Kopf += "\x01";
    const std::string Aufbau = "\x05vorbis" + std::string(40, '\x55');
    std::string Datei = OggSeite(2, 0, {Kennung}) + OggSeite(0, 1, {Kopf, Aufbau});
    std::uint32_t Nummer = 2;
    while (Datenbytes > 0) {
        const std::size_t Länge = std::min<std::size_t>(Datenbytes, 4000);
        Datenbytes -= Länge;
        Datei += OggSeite(Datenbytes == 0 ? 4 : 0, Nummer++, {std::string(Länge, '\x2A')});
    }
    return Datei;
}

std::string BmpDatei(std::uint32_t Breite, std::uint32_t Höhe, std::uint32_t Farbe) {
    const std::size_t Zeile = (std::size_t{Breite} * 3 + 3) / 4 * 4;
    std::string Punkte;
    for (std::uint32_t Spalte = 0; Spalte < Breite; ++Spalte) {
        Punkte += KleinesEnde(Farbe, 3);
    }
    Punkte.resize(Zeile);
    constexpr std::size_t Kopflänge = 54;
    std::string Datei = "BM" + KleinesEnde(Kopflänge + Zeile * Höhe, 4) + KleinesEnde(0, 4) +
                        KleinesEnde(Kopflänge, 4) + KleinesEnde(40, 4) + KleinesEnde(Breite, 4) +
                        KleinesEnde(Höhe, 4) + KleinesEnde(1, 2) + KleinesEnde(24, 2) + std::string(24, '\0');
    for (std::uint32_t Nummer = 0; Nummer < Höhe; ++Nummer) {
        Datei += Punkte;
    }
    return Datei;
}

std::string GifDatei() {
    // 1 x 1 pixel, two colours; the picture data is clear code, colour 0, end code.
    return "GIF89a" + KleinesEnde(1, 2) + KleinesEnde(1, 2) + std::string("\x80\x00\x00", 3) +
           "\x20\x60\xA0" + "\xFF\xFF\xFF" + "," + KleinesEnde(0, 4) + KleinesEnde(1, 2) + KleinesEnde(1, 2) +
           std::string("\x00\x02\x02\x44\x01\x00;", 7);
}

}  // namespace liedwerk::tagbau
