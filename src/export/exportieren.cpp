#include "export/exportieren.h"

#include <algorithm>
#include <optional>

#include "basis/ansi.h"
#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::string_view Bytefolgemarke = "\xEF\xBB\xBF";
constexpr std::size_t Schreibblock = std::size_t{1} << 20;

enum class Kodierung { Ansi, Utf8, Utf8MitMarke };

bool IstPls(const Exportauftrag& Auftrag) {
    // Kept: the test is exact, a name in capitals gives M3U.
    return Auftrag.Datei.ends_with("pls");
}

Exportformatierung FormatWählen(const Katalog& Index, const Exportauftrag& Auftrag) {
    switch (Auftrag.Modus) {
        case Exportmodus::Text:
            return TextFormat(Index, Auftrag.Liste, Auftrag.Trennzeichen, Auftrag.Anführungszeichen);
        case Exportmodus::Html:
            return HtmlFormat(Index, Auftrag.Liste);
        case Exportmodus::Playliste:
            return IstPls(Auftrag) ? PlsFormat(Index, Auftrag.PlaylistFürWinamp)
                                   : M3uFormat(Index, Auftrag.PlaylistFürWinamp);
        case Exportmodus::Tabelle:
            return CsvFormat(Index, Auftrag.Liste);
        case Exportmodus::M3u8:
            return M3u8Format(Index);
        case Exportmodus::Json:
            return JsonFormat(Index, Auftrag.Liste);
    }
    return {};
}

// The code page to begin with, and the one for what it cannot hold.
Kodierung ErsteKodierung(const Katalog& Index, std::span<const Satznummer> Sätze, Exportmodus Modus) {
    switch (Modus) {
        case Exportmodus::Tabelle:
            return Kodierung::Utf8MitMarke;
        case Exportmodus::M3u8:
        case Exportmodus::Json:
            return Kodierung::Utf8;
        case Exportmodus::Playliste:
            if (std::ranges::any_of(
                    Sätze, [&](Satznummer Nummer) { return IstPosixPfad(Index.Sätze.Pfad(Nummer)); }))
                return Kodierung::Utf8;
            break;
        default:
            break;
    }
    return Kodierung::Ansi;
}

Kodierung Ausweichkodierung(Exportmodus Modus) {
    return Modus == Exportmodus::Playliste ? Kodierung::Utf8 : Kodierung::Utf8MitMarke;
}

// The text with broken bytes as the Windows-1252 characters that they may have been meant for: a table must
// be valid for its readers. A play list keeps the bytes of its paths.
std::string MitGültigenZeichen(std::string_view Text) {
    std::string Gültig;
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        ZeichenAnhängen(Gültig, IstBruchbyte(Zeichen)
                                    ? AnsiZeichen(static_cast<unsigned char>(Zeichen & 0xFF))
                                    : Zeichen);
    }
    return Gültig;
}

// Brings the pieces of a format into the file.
class Exportdatei {
  public:
    Exportdatei(Dateiersatz& Ziel, Kodierung Seite) : Ersatz(Ziel), Zeichensatz(Seite) {
        if (Zeichensatz == Kodierung::Utf8MitMarke) Block = Bytefolgemarke;
    }
    // False when the code page lacks a character of it.
    bool Anhängen(std::string_view Text) {
        if (Zeichensatz == Kodierung::Utf8MitMarke && !IstUtf8(Text)) {
            Block += MitGültigenZeichen(Text);
        } else if (Zeichensatz != Kodierung::Ansi || IstAscii(Text)) {
            Block += Text;
        } else if (const auto Bytes = Utf8NachAnsi(Text)) {
            Block += *Bytes;
        } else {
            return false;
        }
        if (Block.size() >= Schreibblock) Abgeben();
        return true;
    }
    void Abgeben() {
        Ersatz.Schreiben(Block);
        Block.clear();
    }

  private:
    Dateiersatz& Ersatz;
    Kodierung Zeichensatz;
    std::string Block;
};

enum class Schreibende { Fertig, Unausdrückbar, Gescheitert };

Schreibende InhaltSchreiben(Exportformatierung& Format, std::span<const Satznummer> Sätze, Kodierung Seite,
                            Dateiersatz& Ersatz, Oberfläche& Person) {
    Exportdatei Datei(Ersatz, Seite);
    std::string Stück;
    Format.Kopf(Stück);
    if (!Datei.Anhängen(Stück)) return Schreibende::Unausdrückbar;
    for (std::size_t Platz = 0; Platz < Sätze.size(); ++Platz) {
        Stück.clear();
        Format.Satz(Stück, Sätze[Platz], Platz);
        if (!Datei.Anhängen(Stück)) return Schreibende::Unausdrückbar;
        if (Ersatz.Fehler()) return Schreibende::Gescheitert;
        // Kept: a cancel is not acted upon, the export runs to its end.
        Person.FortschrittZeigen({}, static_cast<std::int64_t>(Platz) + 1);
    }
    Stück.clear();
    Format.Fuß(Stück);
    if (!Datei.Anhängen(Stück)) return Schreibende::Unausdrückbar;
    Datei.Abgeben();
    return Ersatz.Fehler() ? Schreibende::Gescheitert : Schreibende::Fertig;
}

// What kept a file from being written.
struct Exportfehler {
    Dateifehler Grund;
    bool NichtErsetzbar = false;  // the old file is in the way
};

// The whole way of a file, in the second code page when the first one will not do.
std::optional<Exportfehler> DateiSchreiben(const Katalog& Index, std::span<const Satznummer> Sätze,
                                           const Exportauftrag& Auftrag, Oberfläche& Person) {
    auto Format = FormatWählen(Index, Auftrag);
    auto Seite = ErsteKodierung(Index, Sätze, Auftrag.Modus);
    const bool Vorhanden = DateiExistiert(Auftrag.Datei);
    for (;;) {
        Dateiersatz Ersatz;
        const auto Öffnung = Ersatz.Öffnen(Auftrag.Datei, VorläufigerName(Auftrag.Datei));
        if (Öffnung == Dateiersatz::Öffnung::Gesperrt)
            return Exportfehler{{1, "Die Datei wird gerade von einem anderen Programm geschrieben"}};
        if (Öffnung == Dateiersatz::Öffnung::Fehler) return Exportfehler{Ersatz.Fehler(), Vorhanden};
        const auto Ende = InhaltSchreiben(Format, Sätze, Seite, Ersatz, Person);
        if (Ende == Schreibende::Gescheitert) return Exportfehler{Ersatz.Fehler()};
        if (Ende == Schreibende::Fertig) {
            if (Ersatz.Übernehmen()) return std::nullopt;
            return Exportfehler{Ersatz.Fehler(), Vorhanden};
        }
        Seite = Ausweichkodierung(Auftrag.Modus);
    }
}

}  // namespace

std::string_view TrennzeichenVon(Exporttrenner Trenner) {
    switch (Trenner) {
        case Exporttrenner::Komma:
            return ",";
        case Exporttrenner::Tabulator:
            return "\t";
        case Exporttrenner::Semikolon:
            return ";";
        case Exporttrenner::Leerzeichen:
            return " ";
    }
    return ",";
}

bool ExportSchreiben(const Katalog& Index, std::span<const Satznummer> Sätze, const Exportauftrag& Auftrag,
                     Oberfläche& Person, Protokoll& Log, const Uhr& Zeit) {
    Person.FortschrittStarten("Exportieren läuft", true, static_cast<std::int64_t>(Sätze.size()));
    const auto Fehler = DateiSchreiben(Index, Sätze, Auftrag, Person);
    Person.FortschrittSchließen();
    if (!Fehler) return true;
    Log.Schreiben("ExportSchreiben: Fehler - " + Fehler->Grund.Text + " (Fehler " +
                  std::to_string(Fehler->Grund.Nummer) + ") " + Zeitstempel(Zeit));
    Person.Melden(Symbol::Ausrufezeichen,
                  "Die Datei '" + Auftrag.Datei + "' konnte nicht gespeichert werden" +
                      (Fehler->NichtErsetzbar ? ", da diese nicht gelöscht werden kann.\n" : ".\n") +
                      Fehler->Grund.Text + ".");
    return false;
}

std::string ExportAlsText(const Katalog& Index, std::span<const Satznummer> Sätze,
                          const Exportspalten& Liste) {
    auto Format = TextFormat(Index, Liste, TrennzeichenVon(Exporttrenner::Tabulator), {});
    std::string Text;
    Format.Kopf(Text);
    for (std::size_t Platz = 0; Platz < Sätze.size(); ++Platz)
        Format.Satz(Text, Sätze[Platz], Platz);
    Format.Fuß(Text);
    return Text;
}

}  // namespace liedwerk
