#include "medien/tagdatei.h"

#include <algorithm>
#include <array>
#include <optional>

#include "basis/datei.h"
#include "basis/oberflaeche.h"
#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/id3v2modern.h"
#include "medien/lyrics.h"

namespace liedwerk {
namespace {

// What the messages call a tag.
struct Tagname {
    std::string_view Name;
    // What is said to have failed when the temporary file cannot be made for a removal, behind the path.
    std::string_view Vorläufig;
    std::string_view Endung;
};
const Tagname& NameVon(Tagblock Block) {
    static constexpr std::array<Tagname, 3> Namen = {{
        // Kept: a name that nothing is stored under.
        {"ID3v1", "-neu' konnte nicht gespeichert werden.", "Die Datei '"},
        {"ID3v2", "~lwitmp' konnte nicht erstellt werden.", "Die temporäre Datei '"},
        {"Lyrics", "~lwitmp' konnte nicht erstellt werden.", "Die temporäre Datei '"},
    }};
    return Namen[static_cast<std::size_t>(Block) - 1];
}

std::string MitHinweis(std::string Text) {
    return Text.append("\n\n").append(ZugriffsHinweis);
}
// What the system said, behind a text that tells only what did not work.
std::string MitUrsache(std::string Text, const Dateifehler& Fehler) {
    return Fehler.Text.empty() ? Text : Text.append("\n\nUrsache: ").append(Fehler.Text).append(".");
}
std::string Speichertext(Tagblock Block, std::string_view Grund) {
    return "Der " + std::string(NameVon(Block).Name) +
           "-TAG konnte nicht gespeichert werden.\nGrund: " + std::string(Grund);
}
std::string DateiGrund(std::string_view Pfad, std::string_view Was) {
    return "Die Datei '" + std::string(Pfad) + "' " + std::string(Was);
}
// The text of a save or removal (Was) that the person has stopped.
std::string Abbruchtext(std::string_view Was, Tagblock Block, std::string_view Pfad) {
    return "Das " + std::string(Was) + " des " + TagName(Block) + "s der Datei '" + std::string(Pfad) +
           "' wurde abgebrochen. Die Datei ist unverändert.";
}
// The text for a failure that the formats' procedures have no words of their own for.
std::string Systemtext(Tagblock Block, std::string_view Pfad, const Dateifehler& Fehler) {
    return MitHinweis(
        Speichertext(Block, DateiGrund(Pfad, "kann nicht geschrieben werden: " + Fehler.Text + ".")));
}

// A media file that is open and claimed for a change.
class Tagdatei {
  public:
    // Meldung receives the reason when Offen is false.
    Tagdatei(std::string_view Name, Tagblock Block, std::string& Meldung) : Pfad(Name) {
        if (!DateiExistiert(Pfad)) {
            Meldung = "Die " + std::string(NameVon(Block).Name) + "-TAG der Datei '" + std::string(Pfad) +
                      "' konnte nicht gespeichert werden.\nDie Datei existiert nicht.";
            return;
        }
        Öffnen();
        if (Hindernis) Meldung = Systemtext(Block, Pfad, Hindernis);
    }
    explicit Tagdatei(std::string_view Name) : Pfad(Name) { Öffnen(); }
    bool Offen() const { return Datei.Offen() && !Hindernis; }
    const Dateifehler& Fehler() const { return Hindernis; }
    const Lesedatei& Quelle() const { return Datei; }
    std::uint64_t Größe() const { return Datei.Größe(); }

  private:
    void Öffnen() {
        Datei = Lesedatei::Öffnen(Pfad, &Hindernis);
        if (!Hindernis) Hindernis = Datei.Sperren(Pfad);
        if (!Hindernis) Hindernis = UnterbrochenesSpeichern(Pfad);
    }
    std::string_view Pfad;
    Lesedatei Datei;
    Dateifehler Hindernis;
};

Datensatz Id3v2Zustand(const Lesedatei& Datei, const Tagoptionen& Optionen) {
    Datensatz Zustand;
    Dateianfang Anfang(Datei);
    Id3v2Lesen(Anfang, Optionen.TAGsBytesSuchen, Optionen.TAGsModern, Zustand);
    return Zustand;
}

// The change that a save makes, in the way that the options choose; or the reason why there is none.
Id3v2Umbau Id3v2SpeichernPlanen(const Lesedatei& Quelle, const Datensatz& Satz, const Tagoptionen& Optionen,
                                std::string& Hindernis) {
    const Datensatz Zustand = Id3v2Zustand(Quelle, Optionen);
    if (!Optionen.TAGsModern) return Id3v2UmbauPlanen(Zustand, Satz, Optionen.TAGsProzentHinzufügen);
    const Id3v2Umbau Alt = Id3v2EntfernungPlanen(Zustand);
    Id3v2Neubau Neubau = Id3v2ModernBilden(Quelle.Lesen(Alt.Stelle, Alt.Altlänge), Satz);
    Hindernis = std::move(Neubau.Hindernis);
    if (!Hindernis.empty()) return {};
    const auto Platz = (Id3v2Höchstlänge - Neubau.Bytes.size() + Id3v2KopfLänge) * 100 / Neubau.Bytes.size();
    const auto Prozent =
        std::min<std::int64_t>(Optionen.TAGsProzentHinzufügen, static_cast<std::int64_t>(Platz));
    return Id3v2Einsetzen(Zustand, std::move(Neubau.Bytes), static_cast<std::int32_t>(Prozent));
}

Datensatz Lyricszustand(const Lesedatei& Datei, std::string_view Dateiende) {
    Datensatz Zustand;
    LyricsLesen(Datei, Dateiende, Zustand);
    return Zustand;
}

Schreibausgang Id3v2Umbauen(std::string_view Pfad, const Lesedatei& Quelle, const Id3v2Umbau& Umbau,
                            const Schreibrahmen& Rahmen) {
    if (Umbau.AmOrt()) return AmOrtSchreiben(Pfad, Quelle, 0, Umbau.Neu);
    return NeuSchreiben(
        Pfad, Quelle,
        {{Umbau.Neu}, AusAlter(0, Umbau.Stelle), AusAlter(Umbau.Stelle + Umbau.Altlänge, Quelle.Größe())},
        Rahmen);
}

// The text of a failed save that was to go through the temporary file. MitAltem: an old tag had to go.
std::string Umschreibtext(Tagblock Block, std::string_view Pfad, bool MitAltem, const Schreibausgang& Ende) {
    if (WurdeAbgebrochen(Ende.Fehler)) return Abbruchtext("Speichern", Block, Pfad);
    const std::string Name(NameVon(Block).Name);
    const bool Vorläufig = Ende.Stand == Schritt::Vorläufig;
    if (Ende.Stand == Schritt::Schreiben ||
        (Vorläufig && Block != Tagblock::Lyrics && !LiegtAmZugriff(Ende.Fehler)))
        return Systemtext(Block, Pfad, Ende.Fehler);
    std::string Grund = DateiGrund(Pfad, "konnte nicht gelöscht werden.");
    if (Block == Tagblock::Lyrics && Vorläufig) {
        Grund = "Die temporäre Datei '" + std::string(Pfad) + std::string(TagTemporärEndung) +
                "' konnte nicht gelöscht werden.";
    } else if (MitAltem && Ende.Stand != Schritt::Ersetzen) {
        Grund = "Der " + Name + "-TAG der Datei '" + std::string(Pfad) + "' konnte nicht entfernt werden.";
    }
    return MitUrsache(MitHinweis(Speichertext(Block, Grund)), Ende.Fehler);
}

// The range of a file that a removal takes out; nothing when the file has no such tag.
struct Bereich {
    std::uint64_t Stelle = 0;
    std::uint64_t Länge = 0;
};
std::optional<Bereich> TagFinden(const Lesedatei& Datei, Tagblock Block, const Tagoptionen& Optionen) {
    const std::string Dateiende = DateiendeLesen(Datei);
    switch (Block) {
        case Tagblock::Id3v1:
            if (Id3v1Lesen(Dateiende).empty()) return std::nullopt;
            return Bereich{Datei.Größe() - Id3v1Größe, Id3v1Größe};
        case Tagblock::Id3v2: {
            const auto Umbau = Id3v2EntfernungPlanen(Id3v2Zustand(Datei, Optionen));
            if (Umbau.Altlänge == 0) return std::nullopt;
            return Bereich{Umbau.Stelle, Umbau.Altlänge};
        }
        case Tagblock::Lyrics: {
            const Datensatz Zustand = Lyricszustand(Datei, Dateiende);
            if (Zustand.HatLyrics != TagVorhanden) return std::nullopt;
            return Bereich{static_cast<std::uint64_t>(Zustand.LyricsPosition - 1),
                           static_cast<std::uint64_t>(Zustand.LyricsGröße)};
        }
    }
    return std::nullopt;
}

std::string Entferntext(std::string_view Pfad, Tagblock Block, const Schreibausgang& Ende) {
    if (WurdeAbgebrochen(Ende.Fehler)) return Abbruchtext("Entfernen", Block, Pfad);
    const Tagname& Name = NameVon(Block);
    const std::string Kopf = "Der " + std::string(Name.Name) + "-TAG konnte nicht entfernt werden.\n\n";
    switch (Ende.Stand) {
        case Schritt::Vorläufig:
            return MitUrsache(
                Kopf + std::string(Name.Endung) + std::string(Pfad) + std::string(Name.Vorläufig),
                Ende.Fehler);
        case Schritt::Ersetzen:
            return MitUrsache(MitHinweis(Kopf + DateiGrund(Pfad, "konnte nicht ersetzt werden.")),
                              Ende.Fehler);
        default:
            return MitHinweis(Kopf +
                              DateiGrund(Pfad, "kann nicht geschrieben werden: " + Ende.Fehler.Text + "."));
    }
}

}  // namespace

std::string TagName(Tagblock Block) {
    return std::string(NameVon(Block).Name) + "-TAG";
}

bool Id3v1Schreiben(std::string_view Pfad, std::string_view Block, std::string& Meldung) {
    const Tagdatei Datei(Pfad, Tagblock::Id3v1, Meldung);
    if (!Datei.Offen()) return false;
    const bool HatBlock = !Id3v1Lesen(DateiendeLesen(Datei.Quelle())).empty();
    const auto Ende =
        AmOrtSchreiben(Pfad, Datei.Quelle(), Datei.Größe() - (HatBlock ? Id3v1Größe : 0), Block);
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Systemtext(Tagblock::Id3v1, Pfad, Ende.Fehler);
    return false;
}

bool Id3v2Schreiben(std::string_view Pfad, const Datensatz& Satz, const Tagoptionen& Optionen,
                    std::string& Meldung, const Schreibrahmen& Rahmen) {
    const Tagdatei Datei(Pfad, Tagblock::Id3v2, Meldung);
    if (!Datei.Offen()) return false;
    std::string Hindernis;
    const Id3v2Umbau Umbau = Id3v2SpeichernPlanen(Datei.Quelle(), Satz, Optionen, Hindernis);
    if (!Hindernis.empty()) {
        Meldung = Speichertext(Tagblock::Id3v2, DateiGrund(Pfad, "wurde nicht geändert. " + Hindernis));
        return false;
    }
    const auto Ende = Id3v2Umbauen(Pfad, Datei.Quelle(), Umbau, Rahmen);
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Umbau.AmOrt() ? Systemtext(Tagblock::Id3v2, Pfad, Ende.Fehler)
                            : Umschreibtext(Tagblock::Id3v2, Pfad, Umbau.Altlänge > 0, Ende);
    return false;
}

bool LyricsSchreiben(std::string_view Pfad, std::string_view Text, std::string& Meldung,
                     const Schreibrahmen& Rahmen) {
    const Tagdatei Datei(Pfad, Tagblock::Lyrics, Meldung);
    if (!Datei.Offen()) return false;
    const Lesedatei& Quelle = Datei.Quelle();
    const std::string Dateiende = DateiendeLesen(Quelle);
    const std::uint64_t Blockstelle = Datei.Größe() - Id3v1Lesen(Dateiende).size();
    const Datensatz Zustand = Lyricszustand(Quelle, Dateiende);
    const bool HatAltes = Zustand.HatLyrics == TagVorhanden;
    std::string Tag = LyricsTagBilden(Text, Zustand.LyricsWeitereFelder);

    const std::uint64_t Stelle =
        HatAltes ? static_cast<std::uint64_t>(Zustand.LyricsPosition - 1) : Blockstelle;
    const std::uint64_t Altlänge = HatAltes ? static_cast<std::uint64_t>(Zustand.LyricsGröße) : 0;
    if (Tag.size() >= Altlänge) {
        // What stands behind goes along; that is an ID3v1 block and little more.
        const std::uint64_t Restlänge = Datei.Größe() - (Stelle + Altlänge);
        const std::string Rest = Quelle.Lesen(Stelle + Altlänge, Restlänge);
        const auto Ende = AmOrtSchreiben(Pfad, Quelle, Stelle, Tag + Rest);
        if (Ende.Stand == Schritt::Fertig) return true;
        Meldung = Systemtext(Tagblock::Lyrics, Pfad, Ende.Fehler);
        return false;
    }
    const auto Ende = NeuSchreiben(Pfad, Quelle,
                                   {AusAlter(0, Stelle),
                                    AusAlter(Stelle + Altlänge, Blockstelle),
                                    {Tag},
                                    AusAlter(Blockstelle, Datei.Größe())},
                                   Rahmen);
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Umschreibtext(Tagblock::Lyrics, Pfad, true, Ende);
    return false;
}

bool TagAusDateiEntfernen(std::string_view Pfad, Tagblock Block, const Tagoptionen& Optionen,
                          std::string& Meldung, const Schreibrahmen& Rahmen) {
    const std::string Name(NameVon(Block).Name);
    const std::string Kopf =
        "Der " + Name + "-TAG der Datei '" + std::string(Pfad) + "' kann nicht entfernt werden.\n\nGrund: ";
    if (!DateiExistiert(Pfad)) {
        Meldung = Kopf + "Die Datei existiert nicht.";
        return false;
    }
    const Tagdatei Datei(Pfad);
    if (!Datei.Offen() || !DateiBeschreibbar(Pfad)) {
        Meldung = MitUrsache(MitHinweis(Kopf + "Auf die Datei kann nicht zugegriffen werden."),
                             Datei.Offen() ? KeineSchreibrechte() : Datei.Fehler());
        return false;
    }
    const auto Tag = TagFinden(Datei.Quelle(), Block, Optionen);
    if (Datei.Quelle().Lesefehler()) {
        Meldung = Entferntext(Pfad, Block, {Schritt::Schreiben, NichtGanzGelesen()});
        return false;
    }
    if (!Tag) {
        Meldung = Kopf + "Diese enthält keinen " + Name + "-TAG.";
        return false;
    }
    // What a damaged size claims may be all of the file.
    if (Optionen.TAGsModern && Block == Tagblock::Id3v2 && Tag->Stelle + Tag->Länge > Datei.Größe()) {
        Meldung = Kopf + "Der ID3v2-TAG ist beschädigt, er endet nicht in der Datei.";
        return false;
    }
    const auto Ende =
        NeuSchreiben(Pfad, Datei.Quelle(),
                     {AusAlter(0, Tag->Stelle), AusAlter(Tag->Stelle + Tag->Länge, Datei.Größe())}, Rahmen);
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Entferntext(Pfad, Block, Ende);
    return false;
}

}  // namespace liedwerk
