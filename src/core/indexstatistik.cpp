#include "core/indexstatistik.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

constexpr std::size_t MeistGespieltHöchstens = 30;
constexpr Satznummer Schritt = 4096;  // records between two looks at the person
constexpr std::string_view OhneAngabe = "ohne Angabe";

// The steps of the bit rates in kbit/s: from this on, up to the next.
struct Bitratenstufe {
    std::int64_t Ab;
    std::string_view Name;
};
constexpr Bitratenstufe Bitratenstufen[] = {
    {1, "unter 96"},    {96, "96 - 127"},   {128, "128 - 159"}, {160, "160 - 191"},
    {192, "192 - 255"}, {256, "256 - 319"}, {320, "320"},       {321, "über 320"},
};

// Sums by the bytes of a value; the bytes lie in the index's store.
using Sammlung = std::unordered_map<std::string_view, Statistikwerte>;

void Zählen(Statistikwerte& Ziel, const Statistikwerte& Eine) {
    Ziel.Dateien += Eine.Dateien;
    Ziel.Sekunden += Eine.Sekunden;
    Ziel.Bytes += Eine.Bytes;
}

// A number of a line; 0 for none.
std::int64_t ZahlAus(std::string_view Roh) {
    std::int64_t Zahl = 0;
    std::from_chars(Roh.data(), Roh.data() + Roh.size(), Zahl);
    return Zahl;
}

class Zählung {
  public:
    explicit Zählung(const Katalog& Katalogsicht)
        : Index(Katalogsicht), BeideTags(Katalogsicht.Optionen.SpaltenBeideTags == 1) {}

    void Aufnehmen(Satznummer Nummer) {
        const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
        const std::int64_t Dauer = ZahlAus(Sicht.Roh(FeldDauer));
        const std::int64_t Größe = ZahlAus(Sicht.Roh(FeldGröße));
        const Statistikwerte Eine{1, std::max<std::int64_t>(0, Dauer), std::max<std::int64_t>(0, Größe)};
        Zählen(Ergebnis.Gesamt, Eine);
        Ergebnis.MitDauer += Dauer > 0 ? 1 : 0;
        Ergebnis.MitGröße += Größe >= 0 ? 1 : 0;
        Ergebnis.MitId3v1 += Index.Sätze.HatId3v1(Nummer) == TagVorhanden ? 1 : 0;
        Ergebnis.MitId3v2 += Index.Sätze.HatId3v2(Nummer) == TagVorhanden ? 1 : 0;
        const auto In = [&](Statistikteilung Teilung, std::string_view Roh) {
            Zählen(Sammlungen[static_cast<std::size_t>(Teilung)][Roh], Eine);
        };
        const Quelle Tag = QuelleVon(Nummer);
        if (Tag == Quelle::V2)
            Zählen(GenresV2[Sicht.Roh(FeldV2Genre)], Eine);
        else
            In(Statistikteilung::Genre, Tag == Quelle::V1 ? Sicht.Roh(FeldGenre) : std::string_view());
        In(Statistikteilung::Jahr, Eines(Sicht, Tag, FeldJahr, FeldV2Jahr));
        In(Statistikteilung::Interpret, Eines(Sicht, Tag, FeldInterpret, FeldV2Interpret));
        In(Statistikteilung::Medium, Sicht.Roh(FeldWechselmedium));
        In(Statistikteilung::Dateityp, EndungVon(Sicht.Roh(FeldPfad)));
        Zählen(Stufen[Stufe(ZahlAus(Sicht.Roh(FeldBitrate)))], Eine);
        Abspielung(Nummer, static_cast<std::int32_t>(ZahlAus(Sicht.Roh(FeldAbspielHäufigkeit))));
    }

    Indexstatistik Abschließen() {
        for (const auto& [Roh, Werte] : Sammlungen[0])
            Zählen(Benannt[0][std::string(Roh.empty() ? Roh : GenreNameVon(ZahlAus(Roh)))], Werte);
        for (const auto& [Roh, Werte] : GenresV2)
            Zählen(Benannt[0][Roh.empty() ? std::string() : GenreOhneZahl(IndexwertLesen(Roh))], Werte);
        for (std::size_t Teilung = 1; Teilung < Statistikteilungen; ++Teilung) {
            for (const auto& [Roh, Werte] : Sammlungen[Teilung])
                Zählen(Benannt[Teilung][Name(static_cast<Statistikteilung>(Teilung), Roh)], Werte);
        }
        for (std::size_t Teilung = 0; Teilung < Statistikteilungen; ++Teilung)
            Ordnen(static_cast<Statistikteilung>(Teilung));
        MeistGespielteBenennen();
        return std::move(Ergebnis);
    }

  private:
    // Which tag gives the values that both have. As in the list it is a matter of the tags: an empty field of
    // a present ID3v1 tag stays empty.
    enum class Quelle { Keine, V1, V2 };
    Quelle QuelleVon(Satznummer Nummer) const {
        if (Index.Sätze.HatId3v1(Nummer) == TagVorhanden) return Quelle::V1;
        return BeideTags && Index.Sätze.HatId3v2(Nummer) == TagVorhanden ? Quelle::V2 : Quelle::Keine;
    }
    static std::string_view Eines(const Satzsicht& Sicht, Quelle Tag, int V1, int V2) {
        return Tag == Quelle::Keine ? std::string_view() : Sicht.Roh(Tag == Quelle::V1 ? V1 : V2);
    }

    static std::size_t Stufe(std::int64_t Bitrate) {
        const auto Nächste = std::ranges::upper_bound(Bitratenstufen, Bitrate, {}, &Bitratenstufe::Ab);
        return static_cast<std::size_t>(Nächste - std::begin(Bitratenstufen));
    }

    static std::string Name(Statistikteilung Teilung, std::string_view Roh) {
        std::string Text = IndexwertLesen(Roh);
        if (Teilung == Statistikteilung::Dateityp) return Kleinbuchstaben(Text.substr(Text.empty() ? 0 : 1));
        if (Teilung != Statistikteilung::Jahr) return std::string(Kürzen(Text));
        // Dates count by their year; what holds none has no year.
        const auto Ziffern = Text.find_first_not_of("0123456789");
        Text.resize(std::min(Text.size(), Ziffern));
        return Text.size() == 4 && Text != "0000" ? Text : std::string();
    }

    void Abspielung(Satznummer Nummer, std::int32_t Häufigkeit) {
        if (Häufigkeit <= 0) return;
        ++Ergebnis.Gespielt;
        Ergebnis.Abspielungen += Häufigkeit;
        auto& Liste = Ergebnis.MeistGespielt;
        if (Liste.size() == MeistGespieltHöchstens && Liste.back().Häufigkeit >= Häufigkeit) return;
        // Of equally many plays the earlier record stands in front.
        const auto Stelle =
            std::ranges::upper_bound(Liste, Häufigkeit, std::greater{}, &Gespielter::Häufigkeit);
        Liste.insert(Stelle, {Nummer, {}, Häufigkeit});
        if (Liste.size() > MeistGespieltHöchstens) Liste.pop_back();
    }

    void MeistGespielteBenennen() {
        for (Gespielter& Einer : Ergebnis.MeistGespielt) {
            const Satzsicht Sicht = Index.Sätze.Sicht(Einer.Nummer);
            const Quelle Tag = QuelleVon(Einer.Nummer);
            const std::string Interpret = IndexwertLesen(Eines(Sicht, Tag, FeldInterpret, FeldV2Interpret));
            const std::string Titel = IndexwertLesen(Eines(Sicht, Tag, FeldTitel, FeldV2Titel));
            Einer.Name = Interpret.empty() || Titel.empty() ? Interpret + Titel : Interpret + " - " + Titel;
            if (Einer.Name.empty()) Einer.Name = DateinameVon(Index.Sätze.Pfad(Einer.Nummer));
        }
    }

    void Ordnen(Statistikteilung Teilung) {
        auto& Ziel = Ergebnis.Gruppen[static_cast<std::size_t>(Teilung)];
        Statistikwerte Ohne;
        if (Teilung == Statistikteilung::Bitrate) {
            for (std::size_t Nummer = 1; Nummer < Stufen.size(); ++Nummer)
                if (Stufen[Nummer].Dateien > 0)
                    Ziel.push_back({std::string(Bitratenstufen[Nummer - 1].Name), Stufen[Nummer], false});
            Ohne = Stufen[0];
        } else {
            for (auto& [Eine, Werte] : Benannt[static_cast<std::size_t>(Teilung)]) {
                if (Eine.empty()) {
                    Ohne = Werte;
                } else {
                    Ziel.push_back({Eine, Werte, false});
                }
            }
            const bool Aufsteigend = Teilung == Statistikteilung::Jahr;
            std::ranges::sort(Ziel, [&](const Statistikgruppe& A, const Statistikgruppe& B) {
                if (!Aufsteigend && A.Werte.Dateien != B.Werte.Dateien)
                    return A.Werte.Dateien > B.Werte.Dateien;
                return A.Name < B.Name;
            });
        }
        if (Ohne.Dateien > 0) Ziel.push_back({std::string(OhneAngabe), Ohne, true});
    }

    const Katalog& Index;
    const bool BeideTags;
    Indexstatistik Ergebnis;
    std::array<Sammlung, Statistikteilungen> Sammlungen;
    Sammlung GenresV2;
    std::array<Statistikwerte, std::size(Bitratenstufen) + 1> Stufen;
    std::array<std::unordered_map<std::string, Statistikwerte>, Statistikteilungen> Benannt;
};

std::string GrößeText(std::int64_t Bytes) {
    constexpr std::string_view Einheiten[] = {"Bytes", "KB", "MB", "GB", "TB"};
    std::size_t Einheit = 0;
    // Tenths of the unit, rounded once at the end.
    auto Wert = static_cast<double>(Bytes);
    while (Wert >= 1024 && Einheit + 1 < std::size(Einheiten)) {
        Wert /= 1024;
        ++Einheit;
    }
    const auto Zehntel = static_cast<std::int64_t>(Wert * 10 + 0.5);
    std::string Text = Gruppiert(Zehntel / 10);
    if (Einheit > 0) Text += "," + std::to_string(Zehntel % 10);
    return Text + " " + std::string(Einheiten[Einheit]);
}

std::string SpieldauerText(std::int64_t Sekunden) {
    constexpr std::int64_t Tag = 86400;
    const std::string Zeit = ZeitText(AusKalendersekunden(Sekunden % Tag));
    if (Sekunden < Tag) return Zeit;
    return Gruppiert(Sekunden / Tag) + (Sekunden < 2 * Tag ? " Tag " : " Tage ") + Zeit;
}

}  // namespace

std::optional<Indexstatistik> IndexstatistikBilden(const Katalog& Index,
                                                   const std::function<bool(Satznummer)>& Weiter) {
    Zählung Lauf(Index);
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        if (Nummer % Schritt == 0 && Weiter && !Weiter(Nummer)) return std::nullopt;
        Lauf.Aufnehmen(Nummer);
    }
    return Lauf.Abschließen();
}

std::int64_t MaßVon(const Statistikwerte& Werte, Statistikmaß Maß) {
    switch (Maß) {
        case Statistikmaß::Dateien:
            return Werte.Dateien;
        case Statistikmaß::Spieldauer:
            return Werte.Sekunden;
        case Statistikmaß::Größe:
            return Werte.Bytes;
    }
    return 0;
}

std::string MaßText(std::int64_t Wert, Statistikmaß Maß) {
    switch (Maß) {
        case Statistikmaß::Dateien:
            return Gruppiert(Wert);
        case Statistikmaß::Spieldauer:
            return SpieldauerText(Wert);
        case Statistikmaß::Größe:
            return GrößeText(Wert);
    }
    return {};
}

std::vector<Statistikgruppe> GruppenFürBild(const Indexstatistik& Statistik, Statistikteilung Teilung,
                                            Statistikmaß Maß, std::size_t Höchstens) {
    std::vector<Statistikgruppe> Gruppen = Statistik.Gruppen[static_cast<std::size_t>(Teilung)];
    if (Teilung == Statistikteilung::Jahr || Teilung == Statistikteilung::Bitrate) return Gruppen;
    const bool MitOhne = !Gruppen.empty() && Gruppen.back().Gesammelt;
    std::ranges::stable_sort(Gruppen.begin(), Gruppen.end() - (MitOhne ? 1 : 0), std::greater{},
                             [Maß](const Statistikgruppe& Eine) { return MaßVon(Eine.Werte, Maß); });
    if (Gruppen.size() <= Höchstens + (MitOhne ? 1 : 0)) return Gruppen;
    Statistikgruppe Übrige{"übrige", {}, true};
    const auto Ende = Gruppen.end() - (MitOhne ? 1 : 0);
    const auto Anfang = Gruppen.begin() + static_cast<std::ptrdiff_t>(Höchstens);
    for (auto Eine = Anfang; Eine != Ende; ++Eine)
        Zählen(Übrige.Werte, Eine->Werte);
    Übrige.Name += " (" + Gruppiert(Ende - Anfang) + ")";
    const auto Stelle = Gruppen.erase(Anfang, Ende);
    Gruppen.insert(Stelle, Übrige);
    return Gruppen;
}

std::string_view TeilungName(Statistikteilung Teilung) {
    constexpr std::string_view Namen[] = {"Genre",   "Jahr",      "Dateityp",
                                          "Bitrate", "Interpret", "Wechselmedium"};
    return Namen[static_cast<std::size_t>(Teilung)];
}

std::string StatistikAlsText(const Indexstatistik& Statistik, std::string_view Eigentümer) {
    std::string Text;
    const auto Zeile = [&Text](std::string_view Name, const std::string& Wert) {
        Text.append(Name).append("\t").append(Wert).append("\n");
    };
    if (!Eigentümer.empty()) Zeile("Eigentümer", std::string(Eigentümer));
    Zeile("Dateien", Gruppiert(Statistik.Gesamt.Dateien));
    Zeile("Spieldauer", MaßText(Statistik.Gesamt.Sekunden, Statistikmaß::Spieldauer));
    Zeile("Größe", MaßText(Statistik.Gesamt.Bytes, Statistikmaß::Größe));
    Zeile("Mit ID3v1-TAG", Gruppiert(Statistik.MitId3v1));
    Zeile("Mit ID3v2-TAG", Gruppiert(Statistik.MitId3v2));
    Zeile("Abgespielte Dateien", Gruppiert(Statistik.Gespielt));
    Zeile("Abspielungen", Gruppiert(Statistik.Abspielungen));
    for (std::size_t Teilung = 0; Teilung < Statistikteilungen; ++Teilung) {
        Text.append("\n").append(TeilungName(static_cast<Statistikteilung>(Teilung)));
        Text.append("\tDateien\tSpieldauer\tGröße\n");
        for (const Statistikgruppe& Eine : Statistik.Gruppen[Teilung])
            Zeile(Eine.Name, Gruppiert(Eine.Werte.Dateien) + "\t" +
                                 MaßText(Eine.Werte.Sekunden, Statistikmaß::Spieldauer) + "\t" +
                                 MaßText(Eine.Werte.Bytes, Statistikmaß::Größe));
    }
    Text += "\nMeistgespielt\tAbspielungen\n";
    for (const Gespielter& Einer : Statistik.MeistGespielt)
        Zeile(Einer.Name, Gruppiert(Einer.Häufigkeit));
    return Text;
}

}  // namespace liedwerk
