#include "medien/tagumschreiben.h"

#include <cerrno>

#include "basis/dateiname.h"
#include "basis/mehrfachnamen.h"
#include "basis/merkzettel.h"
#include "basis/pfad.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

constexpr std::string_view MarkeAnfang = "speichern-";
constexpr std::string_view MarkeEndung = ".lwimerk";
// Begins the mark of a copy; the length of the path behind it tells a mark that was not written to its end.
constexpr std::string_view Kopiewort = "Kopie ";
// More than any path of the system.
constexpr std::uint64_t HöchsteMarkenlänge = 65536;

// Prepares the new content for the name that it shall have.
Schreibausgang Vorbereiten(Dateiersatz& Ersatz, std::string_view Pfad, bool MehrereNamen) {
    if (!DateiBeschreibbar(Pfad)) return {Schritt::Zugriff, KeineSchreibrechte()};
    const std::string Vorbild(MehrereNamen ? Pfad : std::string_view());
    switch (Ersatz.Öffnen(MehrereNamen ? TagGesichertname(Pfad) : std::string(Pfad), TagTemporärname(Pfad),
                          Vorbild)) {
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

Schreibausgang Gescheitert(const Dateifehler& Fehler) {
    return {LiegtAmZugriff(Fehler) ? Schritt::Ersetzen : Schritt::Schreiben, Fehler};
}

// A failure that names a helper file which could not be removed either.
Dateifehler MitHilfsdatei(Dateifehler Fehler, const std::string& Hilfsdatei) {
    const bool Genannt = Fehler.Text.find(Hilfsdatei) != std::string::npos;
    if (!Genannt && DateiExistiert(Hilfsdatei)) Fehler.Text += HilfsdateiBleibt(Hilfsdatei);
    return Fehler;
}

// A mark of the rewriting of a file, as long as this lives and nobody keeps it. Without it the next read of
// the file finds what an interruption has left; so a folder that takes none stops nothing.
class Schreibmarkierung {
  public:
    // Inode: of a file that an interruption may tear; its mark is on the disk before that. 0: only a helper
    // file may be left, and waiting for the disk twice a file would double the time of a run over many.
    Schreibmarkierung(const std::string& Ordner, const std::string& Pfad, std::uint64_t Inode) {
        if (Ordner.empty()) return;
        const std::string Marke = PfadVerbinden(Ordner, SchreibmarkeName(Pfad));
        if (Inode != 0 ? FestAnlegen(Marke, std::to_string(Inode) + "\n" + Pfad)
                       : MerkzettelAnlegen(
                             Marke, std::string(Kopiewort) + std::to_string(Pfad.size()) + "\n" + Pfad))
            Name = Marke;
    }
    Schreibmarkierung(const Schreibmarkierung&) = delete;
    Schreibmarkierung& operator=(const Schreibmarkierung&) = delete;
    ~Schreibmarkierung() {
        if (!Name.empty()) DateiLöschen(Name);
    }
    void Behalten() { Name.clear(); }

  private:
    static bool FestAnlegen(const std::string& Marke, const std::string& Inhalt) {
        if (VerweiseAuflösen(Marke) != Marke) return false;  // nothing is written through a link
        Dateiersatz Datei;
        return Datei.Öffnen(Marke, Marke + std::string(SchreibmarkeUnfertig)) ==
                   Dateiersatz::Öffnung::Bereit &&
               Datei.Schreiben(Inhalt) && Datei.Übernehmen();
    }
    std::string Name;
};

// Makes the prepared content the content of a file with several names, in place: a rename would part them.
Schreibausgang MehrfachesÜbernehmen(Dateiersatz& Ersatz, const std::string& Pfad, const Dateistand& Stand,
                                    Schreibmarkierung& Marke) {
    if (!Ersatz.Übernehmen(false, Vorhandenes::Lassen)) return Gescheitert(Ersatz.Fehler());
    bool Angefangen = false;
    // From here on it is quicker to come to the end than to go back.
    auto Fehler = GesichertesÜbertragen(Pfad, Stand, {}, Angefangen);
    if (!Fehler) return {};
    if (Angefangen) {
        Marke.Behalten();
        return {Schritt::Schreiben, std::move(Fehler)};
    }
    const std::string Gesichert = TagGesichertname(Pfad);
    DateiLöschen(Gesichert);
    return {Schritt::Schreiben, MitHilfsdatei(std::move(Fehler), Gesichert)};
}

// Writes the pieces and makes them the file.
Schreibausgang StückeÜbernehmen(Dateiersatz& Ersatz, const std::string& Pfad, bool MehrereNamen,
                                const Lesedatei& Quelle, std::initializer_list<Dateistück> Stücke,
                                const Kopierfortschritt& Weiter, Schreibmarkierung& Marke) {
    for (const Dateistück& Stück : Stücke) {
        const bool Gelungen = Stück.Bytes.empty() ? Ersatz.Kopieren(Quelle, Stück.Stelle, Stück.Länge, Weiter)
                                                  : Ersatz.Schreiben(Stück.Bytes);
        if (!Gelungen) return {Schritt::Schreiben, Ersatz.Fehler()};
    }
    // What somebody did to the original meanwhile must not be undone by our copy of it, nor may another file
    // that a link leads to by now be replaced.
    if (auto Fehler = Quelle.Sperren(Pfad)) return {Schritt::Schreiben, std::move(Fehler)};
    if (MehrereNamen) return MehrfachesÜbernehmen(Ersatz, Pfad, Quelle.Stand(), Marke);
    if (!Ersatz.Übernehmen()) return Gescheitert(Ersatz.Fehler());
    return {};
}

}  // namespace

bool LiegtAmZugriff(const Dateifehler& Fehler) {
    return Fehler.Nummer == EACCES || Fehler.Nummer == EPERM || Fehler.Nummer == EROFS ||
           Fehler.Nummer == ETXTBSY;
}

bool WurdeAbgebrochen(const Dateifehler& Fehler) {
    return Fehler.Nummer == ECANCELED;
}

Dateifehler NichtGanzGelesen() {
    return {EIO, "Die Datei kann nicht ganz gelesen werden"};
}

Dateifehler KeineSchreibrechte() {
    return {EACCES, "Auf die Datei kann nicht geschrieben werden"};
}

Schreibausgang AmOrtSchreiben(std::string_view Pfad, const Lesedatei& Quelle, std::uint64_t Stelle,
                              std::string_view Bytes) {
    if (Quelle.Lesefehler()) return {Schritt::Schreiben, NichtGanzGelesen()};
    auto Fehler = DateiÜberschreiben(Pfad, Quelle.Stand(), Stelle, Bytes);
    if (!Fehler) return {};
    return {LiegtAmZugriff(Fehler) ? Schritt::Zugriff : Schritt::Schreiben, std::move(Fehler)};
}

Schreibausgang NeuSchreiben(std::string_view Name, const Lesedatei& Quelle,
                            std::initializer_list<Dateistück> Stücke, const Schreibrahmen& Rahmen) {
    if (Quelle.Lesefehler()) return {Schritt::Schreiben, NichtGanzGelesen()};
    const std::string Pfad = VerweiseAuflösen(Name);
    const bool MehrereNamen = HatWeitereNamen(Pfad);
    Schreibmarkierung Marke(Rahmen.Merkordner, Pfad, MehrereNamen ? Quelle.Stand().Inode : 0);
    Dateiersatz Ersatz;
    Schreibausgang Ende = Vorbereiten(Ersatz, Pfad, MehrereNamen);
    if (Ende.Stand != Schritt::Fertig) return Ende;
    Ende = StückeÜbernehmen(Ersatz, Pfad, MehrereNamen, Quelle, Stücke, Rahmen.Weiter, Marke);
    if (Ende.Stand == Schritt::Fertig) return Ende;
    Ersatz.Verwerfen();
    Ende.Fehler = MitHilfsdatei(std::move(Ende.Fehler), TagTemporärname(Pfad));
    return Ende;
}

Dateifehler GesichertesÜbertragen(std::string_view Pfad, const Dateistand& Stand,
                                  const Kopierfortschritt& Weiter, bool& Angefangen) {
    const std::string Gesichert = TagGesichertname(Pfad);
    Dateifehler Fehler = DateiinhaltÜberschreiben(Pfad, Stand, Gesichert, Weiter, Angefangen);
    if (Fehler && Angefangen) Fehler.Text += ". Ihr vollständiger neuer Inhalt liegt in '" + Gesichert + "'";
    if (Fehler) return Fehler;
    Fehler = DateiLöschen(Gesichert);
    if (!Fehler) {
        // Not before: with the old time the file is known as ours, however far its overwriting came.
        ÄnderungszeitErneuern(Pfad);
        return {};
    }
    Angefangen = false;
    Fehler.Text = "Ihr neuer Inhalt steht in ihr, aber es bleibt etwas zurück: " + Fehler.Text;
    return MitHilfsdatei(std::move(Fehler), Gesichert);
}

std::string SchreibmarkeName(std::string_view Pfad) {
    return std::string(MarkeAnfang) + std::to_string(Kennzahl(Pfad)) + std::string(MarkeEndung);
}

bool IstSchreibmarke(std::string_view Name) {
    if (Name.ends_with(SchreibmarkeUnfertig)) Name.remove_suffix(SchreibmarkeUnfertig.size());
    return Name.starts_with(MarkeAnfang) && Name.ends_with(MarkeEndung);
}

std::optional<Schreibmarke> SchreibmarkeLesen(std::string_view Markendatei) {
    if (!EigeneDatei(Markendatei)) return std::nullopt;
    const std::string Inhalt = DateiLesen(Markendatei, HöchsteMarkenlänge).value_or("");
    const std::size_t Zeilenende = Inhalt.find('\n');
    if (Zeilenende == Inhalt.npos) return Schreibmarke{};
    const bool Kopie = Inhalt.starts_with(Kopiewort);
    const std::size_t Anfang = Kopie ? Kopiewort.size() : 0;
    const auto Zahlwert =
        GanzzahlLesen<std::uint64_t>(Inhalt.substr(Anfang, Zeilenende - Anfang)).value_or(0);
    Schreibmarke Marke{Inhalt.substr(Zeilenende + 1), Kopie ? 0 : Zahlwert};
    if (Kopie ? Marke.Pfad.size() != Zahlwert : Zahlwert == 0) Marke.Pfad.clear();
    return Marke;
}

}  // namespace liedwerk
