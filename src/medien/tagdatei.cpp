#include "medien/tagdatei.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <initializer_list>
#include <optional>

#include "basis/datei.h"
#include "basis/mehrfachnamen.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/id3v2modern.h"
#include "medien/lyrics.h"

namespace liedwerk {
namespace {

// A path with something behind it. A name that is too long for that on common file systems is shortened.
std::string MitEndung(std::string_view Pfad, std::string_view Endung) {
    const std::size_t Höchstlänge = 255 - Endung.size();
    const std::size_t Namenslänge = DateinameVon(Pfad).size();
    if (Namenslänge > Höchstlänge) {
        Pfad.remove_suffix(Namenslänge - Höchstlänge);
        // Not in the midst of a character.
        while ((static_cast<unsigned char>(Pfad.back()) & 0xC0U) == 0x80U)
            Pfad.remove_suffix(1);
        if (static_cast<unsigned char>(Pfad.back()) >= 0xC0U) Pfad.remove_suffix(1);
    }
    return std::string(Pfad).append(Endung);
}

// A piece of a new file: bytes of its own, or a range of the old file.
struct Dateistück {
    std::string_view Bytes{};
    std::uint64_t Stelle = 0;
    std::uint64_t Länge = 0;
};
Dateistück AusAlter(std::uint64_t Stelle, std::uint64_t Ende) {
    return {{}, Stelle, Ende > Stelle ? Ende - Stelle : 0};
}

// How far a change of a file came.
enum class Schritt {
    Fertig,
    Zugriff,    // the file cannot be opened for writing
    Vorläufig,  // the temporary file cannot be made
    Schreiben,  // the new content cannot be written
    Ersetzen,   // the original cannot be replaced
};
struct Ausgang {
    Schritt Stand = Schritt::Fertig;
    Dateifehler Fehler;
};

// True when the person can mend it with the rights of file and folder.
bool LiegtAmZugriff(const Dateifehler& Fehler) {
    return Fehler.Nummer == EACCES || Fehler.Nummer == EPERM || Fehler.Nummer == EROFS ||
           Fehler.Nummer == ETXTBSY;
}

Dateifehler KeineSchreibrechte() {
    return {EACCES, "Auf die Datei kann nicht geschrieben werden"};
}

Ausgang AmOrtSchreiben(std::string_view Pfad, const Lesedatei& Quelle, std::uint64_t Stelle,
                       std::string_view Bytes) {
    auto Fehler = DateiÜberschreiben(Pfad, Quelle.Stand(), Stelle, Bytes);
    if (!Fehler) return {};
    return {LiegtAmZugriff(Fehler) ? Schritt::Zugriff : Schritt::Schreiben, std::move(Fehler)};
}

// A file with several names (hard links) is overwritten in place, since a rename would part them. Its new
// content lies whole and flushed beside it meanwhile, so that an interrupted save can be brought to its end;
// it goes only when it stands in the file. Angefangen says whether that one may be torn.
Dateifehler GesichertesÜbertragen(std::string_view Pfad, const Dateistand& Stand, bool& Angefangen) {
    const std::string Gesichert = TagGesichertname(Pfad);
    Dateifehler Fehler;
    const Lesedatei Neu = Lesedatei::Öffnen(Gesichert, &Fehler);
    if (!Fehler) Fehler = DateiinhaltÜberschreiben(Pfad, Stand, Neu, Angefangen);
    if (!Fehler) {
        DateiLöschen(Gesichert);
    } else if (Angefangen) {
        Fehler.Text += ". Ihr vollständiger neuer Inhalt liegt in '" + Gesichert + "'";
    }
    return Fehler;
}

// Prepares the new content for the name that it shall have.
Ausgang Vorbereiten(Dateiersatz& Ersatz, std::string_view Pfad, bool MehrereNamen) {
    if (!DateiBeschreibbar(Pfad)) return {Schritt::Zugriff, KeineSchreibrechte()};
    const std::string Gesichert = TagGesichertname(Pfad);
    if (DateiExistiert(Gesichert)) {
        return {Schritt::Vorläufig,
                {EEXIST, "Ein früheres Speichern wurde unterbrochen; der vollständige Inhalt liegt in '" +
                             Gesichert + "'"}};
    }
    const std::string Vorbild(MehrereNamen ? Pfad : std::string_view());
    switch (Ersatz.Öffnen(MehrereNamen ? Gesichert : std::string(Pfad), TagTemporärname(Pfad), Vorbild)) {
        case Dateiersatz::Öffnung::Bereit:
            return {};
        case Dateiersatz::Öffnung::Gesperrt:
            return {Schritt::Vorläufig,
                    {EAGAIN, "Die Datei wird gerade von einem anderen Programmlauf geschrieben"}};
        case Dateiersatz::Öffnung::Fehler:
            break;
    }
    return {Schritt::Vorläufig, Ersatz.Fehler()};
}

Ausgang NeuSchreiben(std::string_view Name, const Lesedatei& Quelle,
                     std::initializer_list<Dateistück> Stücke) {
    const std::string Pfad = VerweiseAuflösen(Name);
    const bool MehrereNamen = HatWeitereNamen(Pfad);
    Dateiersatz Ersatz;
    if (auto Ende = Vorbereiten(Ersatz, Pfad, MehrereNamen); Ende.Stand != Schritt::Fertig) return Ende;
    for (const Dateistück& Stück : Stücke) {
        const bool Gelungen = Stück.Bytes.empty() ? Ersatz.Kopieren(Quelle, Stück.Stelle, Stück.Länge)
                                                  : Ersatz.Schreiben(Stück.Bytes);
        if (!Gelungen) return {Schritt::Schreiben, Ersatz.Fehler()};
    }
    // What somebody did to the original meanwhile must not be undone by our copy of it.
    if (auto Fehler = Quelle.Sperren(Name)) return {Schritt::Schreiben, std::move(Fehler)};
    if (!Ersatz.Übernehmen())
        return {LiegtAmZugriff(Ersatz.Fehler()) ? Schritt::Ersetzen : Schritt::Schreiben, Ersatz.Fehler()};
    if (!MehrereNamen) return {};
    bool Angefangen = false;
    auto Fehler = GesichertesÜbertragen(Pfad, Quelle.Stand(), Angefangen);
    if (!Fehler) return {};
    if (!Angefangen) DateiLöschen(TagGesichertname(Pfad));
    return {Schritt::Schreiben, std::move(Fehler)};
}

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

Ausgang Id3v2Umbauen(std::string_view Pfad, const Lesedatei& Quelle, const Id3v2Umbau& Umbau) {
    if (Umbau.AmOrt()) return AmOrtSchreiben(Pfad, Quelle, 0, Umbau.Neu);
    return NeuSchreiben(
        Pfad, Quelle,
        {{Umbau.Neu}, AusAlter(0, Umbau.Stelle), AusAlter(Umbau.Stelle + Umbau.Altlänge, Quelle.Größe())});
}

// The text of a failed save that was to go through the temporary file. MitAltem: an old tag had to go.
std::string Umschreibtext(Tagblock Block, std::string_view Pfad, bool MitAltem, const Ausgang& Ende) {
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

std::string Entferntext(std::string_view Pfad, Tagblock Block, const Ausgang& Ende) {
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

std::string TagTemporärname(std::string_view Pfad) {
    return MitEndung(Pfad, TagTemporärEndung);
}

std::string TagGesichertname(std::string_view Pfad) {
    return MitEndung(Pfad, "~lwineu");
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
                    std::string& Meldung) {
    const Tagdatei Datei(Pfad, Tagblock::Id3v2, Meldung);
    if (!Datei.Offen()) return false;
    std::string Hindernis;
    const Id3v2Umbau Umbau = Id3v2SpeichernPlanen(Datei.Quelle(), Satz, Optionen, Hindernis);
    if (!Hindernis.empty()) {
        Meldung = Speichertext(Tagblock::Id3v2, DateiGrund(Pfad, "wurde nicht geändert. " + Hindernis));
        return false;
    }
    const auto Ende = Id3v2Umbauen(Pfad, Datei.Quelle(), Umbau);
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Umbau.AmOrt() ? Systemtext(Tagblock::Id3v2, Pfad, Ende.Fehler)
                            : Umschreibtext(Tagblock::Id3v2, Pfad, Umbau.Altlänge > 0, Ende);
    return false;
}

bool LyricsSchreiben(std::string_view Pfad, std::string_view Text, std::string& Meldung) {
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
        Ausgang Ende{Schritt::Schreiben, {EIO, "Die Datei kann nicht ganz gelesen werden"}};
        if (Rest.size() == Restlänge) Ende = AmOrtSchreiben(Pfad, Quelle, Stelle, Tag + Rest);
        if (Ende.Stand == Schritt::Fertig) return true;
        Meldung = Systemtext(Tagblock::Lyrics, Pfad, Ende.Fehler);
        return false;
    }
    const auto Ende = NeuSchreiben(Pfad, Quelle,
                                   {AusAlter(0, Stelle),
                                    AusAlter(Stelle + Altlänge, Blockstelle),
                                    {Tag},
                                    AusAlter(Blockstelle, Datei.Größe())});
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Umschreibtext(Tagblock::Lyrics, Pfad, true, Ende);
    return false;
}

bool TagAusDateiEntfernen(std::string_view Pfad, Tagblock Block, const Tagoptionen& Optionen,
                          std::string& Meldung) {
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
    if (!Tag) {
        Meldung = Kopf + "Diese enthält keinen " + Name + "-TAG.";
        return false;
    }
    // What a damaged size claims may be all of the file.
    if (Optionen.TAGsModern && Block == Tagblock::Id3v2 && Tag->Stelle + Tag->Länge > Datei.Größe()) {
        Meldung = Kopf + "Der ID3v2-TAG ist beschädigt, er endet nicht in der Datei.";
        return false;
    }
    const auto Ende = NeuSchreiben(
        Pfad, Datei.Quelle(), {AusAlter(0, Tag->Stelle), AusAlter(Tag->Stelle + Tag->Länge, Datei.Größe())});
    if (Ende.Stand == Schritt::Fertig) return true;
    Meldung = Entferntext(Pfad, Block, Ende);
    return false;
}

bool DateiZurückholen(std::string_view Pfad, Oberfläche& Person) {
    const std::string Name(Pfad);
    const bool Fehlt = !DateiExistiert(Pfad);
    const std::string Rest = Fehlt ? TagTemporärname(Pfad) : TagGesichertname(VerweiseAuflösen(Pfad));
    if (!EigeneDatei(Rest) || SperreLesen(Rest) != Sperrzustand::Frei) return !Fehlt;
    const std::string Frage =
        Fehlt ? "Die Datei '" + Name + "' fehlt, aber die vorläufige Datei '" + Rest +
                    "' eines unterbrochenen Speicherns ist noch vorhanden.\n\nMöchten Sie diese wieder in '" +
                    std::string(DateinameVon(Pfad)) + "' umbenennen?"
              : "Das letzte Speichern der Datei '" + Name +
                    "' wurde unterbrochen. Ihr vollständiger neuer Inhalt "
                    "liegt in '" +
                    Rest + "'.\n\nMöchten Sie das Speichern jetzt abschließen?";
    if (Person.JaNein(Symbol::Frage, Frage) != Antwort::Ja) return !Fehlt;
    Dateifehler Fehler;
    if (Fehlt) {
        Fehler = DateiUmbenennen(Rest, Pfad);
    } else if (const auto Stand = DateistandLesen(Pfad)) {
        bool Angefangen = false;
        Fehler = GesichertesÜbertragen(VerweiseAuflösen(Pfad), *Stand, Angefangen);
    }
    if (!Fehler) return true;
    Person.Melden(Symbol::Ausrufezeichen,
                  "Die Datei '" + Name + "' konnte nicht wiederhergestellt werden: " + Fehler.Text + ".");
    return !Fehlt;
}

}  // namespace liedwerk
