#include "dateien/playlisten.h"

#include <algorithm>
#include <map>
#include <utility>

#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/uri.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

constexpr std::size_t LängsteZeile = 32768;  // no system knows longer paths
constexpr std::string_view Utf8Marke = "\xEF\xBB\xBF";

// UTF-16 in the order of its mark; half a character at the end is dropped.
std::string Utf16NachUtf8(std::string_view Bytes, bool HohesZuerst) {
    const auto Einheit = [&](std::size_t Stelle) {
        const auto Erstes = static_cast<unsigned char>(Bytes[Stelle]);
        const auto Zweites = static_cast<unsigned char>(Bytes[Stelle + 1]);
        return static_cast<char32_t>(HohesZuerst ? Erstes << 8 | Zweites : Zweites << 8 | Erstes);
    };
    std::string Text;
    for (std::size_t Stelle = 0; Stelle + 1 < Bytes.size(); Stelle += 2) {
        char32_t Zeichen = Einheit(Stelle);
        const bool Hohes = Zeichen >= 0xD800 && Zeichen < 0xDC00;
        const char32_t Folge = Hohes && Stelle + 3 < Bytes.size() ? Einheit(Stelle + 2) : 0;
        if (Folge >= 0xDC00 && Folge < 0xE000) {
            Zeichen = 0x10000 + ((Zeichen - 0xD800) << 10) + (Folge - 0xDC00);
            Stelle += 2;
        } else if (Zeichen >= 0xD800 && Zeichen < 0xE000) {
            Zeichen = 0xFFFD;
        }
        ZeichenAnhängen(Text, Zeichen);
    }
    return Text;
}

// The names of a list on their way out of its lines.
class Zerleger {
  public:
    Zerleger(Listenart Form, const Namensempfänger& Wohin) : Art(Form), Empfänger(Wohin) {}

    // One line, Ende bytes of the list being gone through with it.
    void Zeile(std::string_view Text, std::size_t Ende) {
        Stelle = Ende;
        if (Text.size() > LängsteZeile || Text.find('\0') != std::string_view::npos) {
            ++Bilanz.ZuLang;
            return;
        }
        Text = Kürzen(Text);
        if (Text.empty()) return;
        switch (Art) {
            case Listenart::Pls:
                return PlsZeile(Text);
            case Listenart::M3u:
                return Name(Text);
            case Listenart::Namen:
                return Spalten(Text);
        }
    }

    // Nobody wants to have more.
    bool Voll() const { return Beendet; }

    Listenbilanz Fertig() {
        // The numbers tell the order, whatever the order of the lines.
        std::ranges::stable_sort(Nummeriert, {}, &Nummerierter::first);
        for (const auto& [Nummer, Wert] : Nummeriert) {
            if (Beendet) break;
            Name(Wert);
        }
        return Bilanz;
    }

  private:
    void PlsZeile(std::string_view Text) {
        const std::size_t Gleich = Text.find('=');
        if (Gleich == std::string_view::npos || !BeginntMitOhneGroß(Text, "file")) return;
        const auto Nummer = GanzzahlLesen<std::int32_t>(Kürzen(Text.substr(4, Gleich - 4)));
        const auto Wert = Kürzen(Text.substr(Gleich + 1));
        if (!Nummer || Wert.empty()) return;
        if (Nummeriert.size() < ListennamenHöchstens) {
            Nummeriert.emplace_back(*Nummer, Wert);
        } else {
            Bilanz.Gekürzt = true;
        }
    }

    // One column or quoted value of several: which of them is a file name shows on the disk only.
    void Spalten(std::string_view Text) {
        const bool Tabelle = Text.find('\t') != std::string_view::npos;
        if (!Tabelle && std::count(Text.begin(), Text.end(), '"') <= 2) return Name(Text);
        const auto Teile = Teilen(Text, Tabelle ? "\t" : "\"");
        for (std::size_t Nummer = 0; Nummer < Teile.size(); ++Nummer) {
            // Between quotes stands every second piece.
            if (!Tabelle && Nummer % 2 == 0) continue;
            Name(Kürzen(Teile[Nummer]), true);
        }
    }

    void Name(std::string_view Text, bool NurVorhanden = false) {
        if (Text.size() > 2 && Text.front() == '"' && Text.back() == '"')
            Text = Text.substr(1, Text.size() - 2);
        if (Text.empty() || Text.starts_with("#EXT")) return;
        const auto Schema = UriSchema(Text);
        if (Text.substr(Schema.size()).starts_with("://") && !Schema.empty() &&
            !GleichOhneGroß(Schema, "file")) {
            ++Bilanz.Ströme;
            return;
        }
        // "#1 Hit.mp3" may be a remark and may be a file.
        if (Anzahl == ListennamenHöchstens) {
            Bilanz.Gekürzt = Beendet = true;
        } else if (!Beendet) {
            ++Anzahl;
            Beendet = !Empfänger({std::string(Text), NurVorhanden || Text.front() == '#'}, Stelle);
        }
    }

    Listenart Art;
    const Namensempfänger& Empfänger;
    Listenbilanz Bilanz;
    std::size_t Anzahl = 0;
    std::size_t Stelle = 0;
    bool Beendet = false;
    using Nummerierter = std::pair<std::int32_t, std::string_view>;
    std::vector<Nummerierter> Nummeriert;
};

}  // namespace

bool IstPlayliste(std::string_view Pfad) {
    return Pfad.ends_with(".pls") || Pfad.ends_with(".m3u") || Pfad.ends_with(".m3u8");
}

Listenart PlaylistenArt(std::string_view Pfad) {
    return EndetMitOhneGroß(Pfad, ".pls") ? Listenart::Pls : Listenart::M3u;
}

Listenbilanz ListeZerlegen(std::string_view Bytes, Listenart Art, const Namensempfänger& Empfänger) {
    const std::size_t Größe = Bytes.size();
    std::string Umgewandelt;
    if (Bytes.starts_with(Utf8Marke)) {
        Bytes.remove_prefix(Utf8Marke.size());
    } else if (Bytes.starts_with("\xFF\xFE") || Bytes.starts_with("\xFE\xFF")) {
        Umgewandelt = Utf16NachUtf8(Bytes.substr(2), Bytes.front() == '\xFE');
        Bytes = Umgewandelt;
    }
    Zerleger Lauf(Art, Empfänger);
    while (!Bytes.empty() && !Lauf.Voll()) {
        const std::size_t Ende = std::min(Bytes.find_first_of("\r\n"), Bytes.size());
        // Text that was converted is longer or shorter than it was.
        Lauf.Zeile(Bytes.substr(0, Ende), Größe - std::min(Größe, Bytes.size() - Ende));
        Bytes.remove_prefix(std::min(Ende + 1, Bytes.size()));
    }
    return Lauf.Fertig();
}

Namenskorrektur NamenKorrigieren(Namensfunde& Funde, const std::vector<std::string>& FundListe) {
    std::map<std::string, const std::string*, std::less<>> NachName;
    for (const auto& Pfad : FundListe)
        NachName.emplace(Falten(DateinameVon(Pfad)), &Pfad);  // the first one stays
    Namenskorrektur Ergebnis;
    for (auto& Zeile : Funde.Zeilen) {
        if (Zeile.Existiert) continue;
        ++Ergebnis.Fehlend;
        const auto Fund = NachName.find(Falten(DateinameVon(Zeile.Pfad)));
        if (Fund == NachName.end()) continue;
        Zeile = {*Fund->second, true};
        ++Ergebnis.Korrigiert;
    }
    return Ergebnis;
}

}  // namespace liedwerk
