// Sheets of the ".toc" form: each track is a sequence of pieces, out of files or silence.
#include <algorithm>

#include "basis/text.h"
#include "plattform/cdabbild.h"

namespace liedwerk {
namespace {

// Lengths count in samples of both channels (4 bytes of sound) until a track is whole.
constexpr std::int64_t SamplesJeFrame = 588;
constexpr std::int64_t SamplesJeSekunde = SamplesJeFrame * CDFramesJeSekunde;
constexpr std::int64_t Samplebytes = 4;

struct Wort {
    std::string Text;
    bool Quotiert = false;
};

// A quoted text from behind its first quote; backslashes protect quotes and introduce octal numbers.
Wort QuotiertLesen(std::string_view Text, std::size_t& Stelle) {
    Wort Neu{{}, true};
    while (Stelle < Text.size() && Text[Stelle] != '"') {
        if (Text[Stelle] != '\\' || Stelle + 1 >= Text.size()) {
            Neu.Text += Text[Stelle++];
            continue;
        }
        ++Stelle;
        unsigned Code = 0;
        std::size_t Ziffern = 0;
        for (; Ziffern < 3 && Stelle + Ziffern < Text.size(); ++Ziffern) {
            const char Ziffer = Text[Stelle + Ziffern];
            if (Ziffer < '0' || Ziffer > '7') break;
            Code = Code * 8 + static_cast<unsigned>(Ziffer - '0');
        }
        Neu.Text += Ziffern == 3 ? static_cast<char>(Code & 0xFFU) : Text[Stelle];
        Stelle += Ziffern == 3 ? 3 : 1;
    }
    ++Stelle;
    return Neu;
}

// The words of a sheet; comments and what stands in braces (texts for display) are left out.
std::vector<Wort> Zerlegen(std::string_view Text) {
    std::vector<Wort> Worte;
    std::size_t Tiefe = 0;
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const char Zeichen = Text[Stelle];
        if (Text.substr(Stelle).starts_with("//")) {
            Stelle = std::min(Text.find_first_of("\r\n", Stelle), Text.size());
        } else if (Zeichen == '"') {
            Wort Neu = QuotiertLesen(Text, ++Stelle);
            if (Tiefe == 0) Worte.push_back(std::move(Neu));
        } else if (Zeichen == '{' || Zeichen == '}') {
            if (Zeichen == '{') ++Tiefe;
            if (Zeichen == '}' && Tiefe > 0) --Tiefe;
            ++Stelle;
        } else if (std::string_view(" \t\r\n,").find(Zeichen) != std::string_view::npos) {
            ++Stelle;
        } else {
            const std::size_t Ende = std::min(Text.find_first_of(" \t\r\n,{}\"", Stelle), Text.size());
            if (Tiefe == 0) Worte.push_back({std::string(Text.substr(Stelle, Ende - Stelle)), false});
            Stelle = Ende;
        }
    }
    return Worte;
}

struct Tocspur {
    std::int64_t Sektor = 0;  // bytes
    bool Daten = false;
    std::int64_t Samples = 0;
    std::int64_t Davor = 0;  // of these, in front of the track's start
};

class Tocleser {
  public:
    Tocleser(std::string_view Text, const Abbilddateien& Dateien)
        : Worte(Zerlegen(Text)), Nachsehen(Dateien) {}

    CDInhalt Lesen() {
        while (Fehler.empty() && Hier < Worte.size()) {
            const Wort& Befehl = Worte[Hier++];
            if (!Befehl.Quotiert) Ausführen(Großbuchstaben(Befehl.Text));
        }
        if (!Fehler.empty()) return AbbildFehler(Fehler);
        std::vector<Abbildspur> Anfänge;
        std::int64_t Stelle = CDVorlauf;
        for (const Tocspur& Spur : Spuren) {
            Anfänge.push_back({Stelle + Spur.Davor / SamplesJeFrame, Spur.Daten});
            // A frame that has begun is filled up.
            Stelle += (Spur.Samples + SamplesJeFrame - 1) / SamplesJeFrame;
        }
        return AbbildInhalt(Anfänge, Stelle);
    }

  private:
    void Ausführen(const std::string& Befehl) {
        constexpr std::size_t HöchsteSpuren = 1000;
        if (Befehl == "TRACK") {
            SpurBeginnen();
        } else if (Spuren.empty() || Spuren.size() > HöchsteSpuren) {
            return;  // what stands in front of the first track tells nothing of places
        } else if (Befehl == "SILENCE" || Befehl == "ZERO" || Befehl == "PREGAP") {
            StilleLesen(Befehl == "PREGAP");
        } else if (Befehl == "FILE" || Befehl == "AUDIOFILE") {
            KlangLesen();
        } else if (Befehl == "DATAFILE") {
            DatenLesen();
        } else if (Befehl == "START") {
            Spuren.back().Davor = Länge().value_or(Spuren.back().Samples);
        }
    }

    void SpurBeginnen() {
        const std::string Modus = Hier < Worte.size() ? Worte[Hier++].Text : std::string();
        const auto Sektor = AbbildSektor(Modus);
        if (!Sektor) {
            Fehler = "Das CD-Abbild ist ungültig: Unbekannte Art von Titel " +
                     std::to_string(Spuren.size() + 1) + ".";
            return;
        }
        constexpr std::int64_t Nebenkanal = 96;  // bytes
        const std::string Weiter = Hier < Worte.size() ? Großbuchstaben(Worte[Hier].Text) : std::string();
        const bool MitNebenkanal = Weiter == "RW" || Weiter == "RW_RAW";
        Spuren.push_back({*Sektor + (MitNebenkanal ? Nebenkanal : 0), !GleichOhneGroß(Modus, "AUDIO"), 0, 0});
    }

    // A length at the place in hand: "mm:ss:ff", or samples, in a data track bytes. Nothing for another word;
    // one that begins like a length and is none is an error.
    std::optional<std::int64_t> Länge() {
        if (Hier >= Worte.size() || Worte[Hier].Quotiert) return std::nullopt;
        const std::string& Text = Worte[Hier].Text;
        std::optional<std::int64_t> Samples;
        if (const auto Zeit = AbbildZeit(Text)) Samples = *Zeit * SamplesJeFrame;
        if (const auto Zahl = AbbildZahl(Text)) Samples = Spuren.back().Daten ? SamplesVon(*Zahl) : *Zahl;
        if (Samples) ++Hier;
        if (!Samples && !Text.empty() && Text.front() >= '0' && Text.front() <= '9')
            Beanstanden("steht die ungültige Länge '" + Text + "'");
        return Samples;
    }

    // What is wrong in the track at hand; the first error counts.
    void Beanstanden(const std::string& Grund) {
        if (Fehler.empty())
            Fehler =
                "Das CD-Abbild ist ungültig: In Titel " + std::to_string(Spuren.size()) + " " + Grund + ".";
    }

    // "#bytes": where in the file the piece begins.
    std::int64_t Versatz() {
        if (Hier >= Worte.size() || Worte[Hier].Quotiert || !Worte[Hier].Text.starts_with('#')) return 0;
        const std::string& Text = Worte[Hier++].Text;
        const auto Bytes = AbbildZahl(std::string_view(Text).substr(1));
        if (!Bytes) Beanstanden("steht die ungültige Stelle '" + Text + "'");
        return Bytes.value_or(0);
    }

    std::int64_t SamplesVon(std::int64_t Bytes) const {
        const std::int64_t Sektor = Spuren.back().Sektor;
        return (Bytes + Sektor - 1) / Sektor * SamplesJeFrame;
    }

    void StilleLesen(bool Davor) {
        // ZERO may name a mode first.
        while (Hier < Worte.size() && !Worte[Hier].Quotiert && AbbildSektor(Worte[Hier].Text))
            ++Hier;
        const auto Samples = Länge();
        if (!Samples) return Beanstanden("fehlt eine Länge");
        Anhängen(*Samples);
        if (Davor) Spuren.back().Davor = *Samples;
    }

    std::string Dateiname() {
        return Hier < Worte.size() && Worte[Hier].Quotiert ? Worte[Hier++].Text : std::string();
    }

    std::optional<Abbilddatei> Datei(const std::string& Name) {
        if (!Fehler.empty()) return std::nullopt;
        auto Angaben = Nachsehen(Name);
        constexpr std::uint64_t Grenze = std::uint64_t{1} << 46U;
        if (!Angaben || Angaben->Größe > Grenze) {
            Fehler = "Die Datei '" + Name + "' des CD-Abbildes fehlt oder ist zu lang.";
            return std::nullopt;
        }
        return Angaben;
    }

    // FILE "name" [SWAP] [#bytes] start [length]: without a length all the file still has.
    void KlangLesen() {
        const std::string Name = Dateiname();
        if (Hier < Worte.size() && GleichOhneGroß(Worte[Hier].Text, "SWAP")) ++Hier;
        const std::int64_t Bytes = Versatz();
        const std::int64_t Beginn = Länge().value_or(0);
        if (const auto Samples = Länge()) return Anhängen(*Samples);
        const auto Angaben = Datei(Name);
        if (!Angaben) return;
        const bool Wave = Angaben->BytesJeSekunde != 0;
        const auto Takt = static_cast<std::int64_t>(Angaben->BytesJeSekunde);
        const std::int64_t Ganze =
            Wave ? static_cast<std::int64_t>(Angaben->Klangbytes) * SamplesJeSekunde / Takt
                 : (static_cast<std::int64_t>(Angaben->Größe) - Bytes) / Spuren.back().Sektor *
                           SamplesJeFrame +
                       (static_cast<std::int64_t>(Angaben->Größe) - Bytes) % Spuren.back().Sektor /
                           Samplebytes;
        RestAnhängen(Name, Ganze - Beginn);
    }

    // DATAFILE "name" [#bytes] [length].
    void DatenLesen() {
        const std::string Name = Dateiname();
        const std::int64_t Bytes = Versatz();
        if (const auto Samples = Länge()) return Anhängen(*Samples);
        const auto Angaben = Datei(Name);
        if (Angaben) RestAnhängen(Name, SamplesVon(static_cast<std::int64_t>(Angaben->Größe) - Bytes));
    }

    void RestAnhängen(const std::string& Name, std::int64_t Samples) {
        if (Samples < 0) {
            Fehler = "Die Datei '" + Name + "' ist kürzer, als das CD-Abbild sagt.";
        } else {
            Anhängen(Samples);
        }
    }

    // Any number of pieces may stand in a sheet; no disc is as long as the bound, and no sum overflows.
    void Anhängen(std::int64_t Samples) {
        constexpr std::int64_t Grenze = std::int64_t{1} << 48U;
        Spuren.back().Samples += Samples;
        if (Spuren.back().Samples > Grenze) Beanstanden("ist der Klang länger als jede CD");
    }

    std::vector<Wort> Worte;
    const Abbilddateien& Nachsehen;
    std::size_t Hier = 0;
    std::vector<Tocspur> Spuren;
    std::string Fehler;
};

}  // namespace

CDInhalt TocAuswerten(std::string_view Text, const Abbilddateien& Dateien) {
    return Tocleser(Text, Dateien).Lesen();
}

}  // namespace liedwerk
