// Sheets of the ".cue" form: FILE, TRACK, INDEX, PREGAP and POSTGAP; everything else tells nothing of places.
#include <algorithm>

#include "basis/text.h"
#include "plattform/cdabbild.h"

namespace liedwerk {
namespace {

struct Cuedatei {
    std::string Name;
    bool Wave = false;  // by what the sheet says
};

struct Cuespur {
    std::int64_t Sektor = 0;  // bytes
    bool Daten = false;
    std::int64_t Davor = 0;  // frames of silence that stand in no file
    std::int64_t Dahinter = 0;
};

// A place that the sheet names: the INDEX of a track in a file.
struct Cuestelle {
    std::size_t Datei = 0;
    std::size_t Spur = 0;
    std::int64_t Index = 0;   // 0 the gap in front, 1 the start
    std::int64_t Frames = 0;  // from the beginning of the file
};

struct Cueblatt {
    std::vector<Cuedatei> Dateien;
    std::vector<Cuespur> Spuren;
    std::vector<Cuestelle> Stellen;  // in their order
};

// The first word of a text; the text loses it and the blanks behind it.
std::string_view WortAbtrennen(std::string_view& Text) {
    const std::size_t Ende = std::min(Text.find_first_of(" \t"), Text.size());
    const std::string_view Wort = Text.substr(0, Ende);
    Text.remove_prefix(std::min(Text.find_first_not_of(" \t", Ende), Text.size()));
    return Wort;
}

// Name, in quotes or not, and type. A name may hold blanks, and quotes too.
Cuedatei DateiLesen(std::string_view Text) {
    const std::size_t Schluss = Text.rfind('"');
    const bool Quotiert = Text.starts_with('"') && Schluss > 0;
    const std::size_t Typanfang = Quotiert ? Schluss : std::min(Text.find_last_of(" \t"), Text.size());
    std::string_view Typ = Text.substr(std::min(Typanfang + 1, Text.size()));
    const std::string_view Name = Quotiert ? Text.substr(1, Schluss - 1) : Text.substr(0, Typanfang);
    Typ.remove_prefix(std::min(Typ.find_first_not_of(" \t"), Typ.size()));
    const bool Roh = GleichOhneGroß(Typ, "BINARY") || GleichOhneGroß(Typ, "MOTOROLA");
    return {std::string(Name), !Roh};
}

// What is wrong with a line; empty when nothing is.
std::string ZeileLesen(std::string_view Text, Cueblatt& Blatt) {
    const std::string Befehl = Großbuchstaben(WortAbtrennen(Text));
    if (Befehl == "FILE") {
        Blatt.Dateien.push_back(DateiLesen(Text));
    } else if (Befehl == "TRACK") {
        WortAbtrennen(Text);  // the number: tracks count in their order
        const std::string_view Modus = WortAbtrennen(Text);
        const auto Sektor = AbbildSektor(Modus);
        if (!Sektor) return "Unbekannte Art eines Titels";
        const bool Klang = GleichOhneGroß(Modus, "AUDIO") || GleichOhneGroß(Modus, "CDG");
        Blatt.Spuren.push_back({*Sektor, !Klang, 0, 0});
    } else if (Befehl == "INDEX") {
        const auto Index = AbbildZahl(WortAbtrennen(Text));
        const auto Zeit = AbbildZeit(WortAbtrennen(Text));
        if (!Index || !Zeit || Blatt.Spuren.empty() || Blatt.Dateien.empty()) return "Ungültiger INDEX";
        Blatt.Stellen.push_back({Blatt.Dateien.size() - 1, Blatt.Spuren.size() - 1, *Index, *Zeit});
    } else if (Befehl == "PREGAP" || Befehl == "POSTGAP") {
        const auto Zeit = AbbildZeit(WortAbtrennen(Text));
        if (!Zeit || Blatt.Spuren.empty()) return "Ungültiger " + Befehl;
        (Befehl == "PREGAP" ? Blatt.Spuren.back().Davor : Blatt.Spuren.back().Dahinter) = *Zeit;
    }
    return {};
}

// The frames of a file; a frame that has begun counts. Nothing when it is shorter than the places in it, or
// when its length cannot be told. Raw sectors differ in size with the track that they belong to.
std::optional<std::int64_t> Dateilänge(const Cueblatt& Blatt, std::size_t Nummer,
                                       const Abbilddatei& Angaben) {
    constexpr std::uint64_t Grenze = std::uint64_t{1} << 50U;
    if (Angaben.Größe > Grenze) return std::nullopt;
    std::int64_t Frames = 0;
    std::int64_t Sektor = 0;
    auto Rest = static_cast<std::int64_t>(Angaben.Größe);
    for (const Cuestelle& Stelle : Blatt.Stellen) {
        if (Stelle.Datei != Nummer) continue;
        if (Stelle.Frames < Frames) return std::nullopt;
        Rest -= (Stelle.Frames - Frames) * (Sektor == 0 ? Blatt.Spuren[Stelle.Spur].Sektor : Sektor);
        Frames = Stelle.Frames;
        Sektor = Blatt.Spuren[Stelle.Spur].Sektor;
    }
    if (Blatt.Dateien[Nummer].Wave) {
        const auto Takt = static_cast<std::int64_t>(Angaben.BytesJeSekunde);
        if (Takt == 0) return std::nullopt;
        const auto Klang = static_cast<std::int64_t>(Angaben.Klangbytes);
        const std::int64_t Länge = (Klang * CDFramesJeSekunde + Takt - 1) / Takt;
        return Länge < Frames ? std::nullopt : std::optional(Länge);
    }
    if (Rest < 0) return std::nullopt;
    return Sektor == 0 ? Frames : Frames + (Rest + Sektor - 1) / Sektor;
}

CDInhalt Anordnen(const Cueblatt& Blatt, const Abbilddateien& Dateien) {
    std::vector<Abbildspur> Spuren;
    std::int64_t Anfang = CDVorlauf;  // of the file at hand, with all silence that was put in before
    std::size_t Begonnen = 0;         // tracks of which a place has been seen
    auto Stelle = Blatt.Stellen.begin();
    for (std::size_t Nummer = 0; Nummer < Blatt.Dateien.size(); ++Nummer) {
        const auto& Datei = Blatt.Dateien[Nummer];
        const auto Angaben = Dateien(Datei.Name);
        if (!Angaben) return AbbildFehler("Die Datei '" + Datei.Name + "' des CD-Abbildes fehlt.");
        const auto Länge = Dateilänge(Blatt, Nummer, *Angaben);
        if (!Länge) {
            return AbbildFehler("Die Datei '" + Datei.Name +
                                "' passt nicht zum CD-Abbild oder ist weder eine BIN- noch eine WAVE-Datei.");
        }
        for (; Stelle != Blatt.Stellen.end() && Stelle->Datei == Nummer; ++Stelle) {
            for (; Begonnen <= Stelle->Spur; ++Begonnen) {
                if (Begonnen > 0) Anfang += Blatt.Spuren[Begonnen - 1].Dahinter;
                Anfang += Blatt.Spuren[Begonnen].Davor;
            }
            if (Stelle->Index != 1) continue;
            if (Spuren.size() != Stelle->Spur) break;
            Spuren.push_back({Anfang + Stelle->Frames, Blatt.Spuren[Stelle->Spur].Daten});
        }
        Anfang += *Länge;
    }
    if (Spuren.size() != Blatt.Spuren.size()) {
        return AbbildFehler("Im CD-Abbild fehlt der Anfang von Titel " + std::to_string(Spuren.size() + 1) +
                            ".");
    }
    return AbbildInhalt(Spuren, Anfang + (Blatt.Spuren.empty() ? 0 : Blatt.Spuren.back().Dahinter));
}

}  // namespace

CDInhalt CueAuswerten(std::string_view Text, const Abbilddateien& Dateien) {
    constexpr std::size_t HöchsteEinträge = 1000;
    Cueblatt Blatt;
    for (const auto& Roh : Teilen(Ersetzen(Text, "\r", "\n"), "\n")) {
        std::string_view Zeile = Roh;
        Zeile.remove_prefix(std::min(Zeile.find_first_not_of(" \t"), Zeile.size()));
        Zeile = Zeile.substr(0, Zeile.find_last_not_of(" \t") + 1);
        const std::string Fehler = ZeileLesen(Zeile, Blatt);
        if (!Fehler.empty() || Blatt.Dateien.size() > HöchsteEinträge ||
            Blatt.Stellen.size() > HöchsteEinträge)
            return AbbildFehler(
                "Das CD-Abbild ist ungültig: " + (Fehler.empty() ? "Zu viele Einträge" : Fehler) + ".");
    }
    return Anordnen(Blatt, Dateien);
}

}  // namespace liedwerk
