// The index file and the IndexFelder file.
#include <filesystem>

#include "basis/text.h"
#include "fuzz/indexwelt.h"
#include "index/felderaustausch.h"
#include "index/indexinhalt.h"
#include "suche/spaltenlayout.h"

namespace liedwerk::fuzz {
namespace {

void SätzeVergleichen(std::string_view Regel, const Satzspeicher& A, const Satzspeicher& B) {
    Gleich(Regel, std::to_string(A.Anzahl()), std::to_string(B.Anzahl()));
    for (Satznummer Nummer = 1; Nummer <= A.Anzahl(); ++Nummer) {
        Gleich(Regel, A.Pfad(Nummer), B.Pfad(Nummer));
        Gleich(Regel, A.Lesen(Nummer), B.Lesen(Nummer));
    }
}

// A CR or LF alone is part of a value and becomes a blank.
bool HatHalbesZeilenende(std::string_view Inhalt) {
    const std::string Rest = Ersetzen(Inhalt, "\r\n", "");
    const bool NurLf = Rest.size() == Inhalt.size();
    return Rest.find_first_of(NurLf ? "\r" : "\r\n") != std::string::npos;
}

}  // namespace

void IndexPrüfen(std::string_view Eingabe) {
    const std::string Alt = DateiLegen("alt.lwi", Eingabe);
    const std::string Neu = Ablage() + "/neu.lwi";
    std::filesystem::remove(Neu);
    const bool Heil = IndexdateiIstHeil(Alt, true) && !HatHalbesZeilenende(Eingabe);
    Indexwelt Erste;
    if (!Erste.Laden(Alt)) return;
    SpaltenSpeichern(SpaltenEinrichten(Erste.Index.Optionen.Spalten), Erste.Index.Optionen.Spalten);

    const std::string Einmal = Erste.Speichern(Neu);
    Fordern(IndexdateiIstHeil(Neu, true), "Was gespeichert wurde, ist heil");

    Indexwelt Zweite;
    Fordern(Zweite.Laden(Neu), "Was gespeichert wurde, lässt sich laden");
    Gleich("Das zweite Speichern schreibt dieselben Bytes", Einmal, Zweite.Speichern(Neu));
    if (!Heil) return;
    SätzeVergleichen("Ein heiler Index kommt so wieder, wie er war", Erste.Index.Sätze, Zweite.Index.Sätze);
    Fordern(Erste.Index.Optionen == Zweite.Index.Optionen, "Die Optionen kommen wieder");
    Fordern(Erste.Index.Termine == Zweite.Index.Termine, "Die Termine kommen wieder");
}

void FelderaustauschPrüfen(std::string_view Eingabe) {
    const std::string Alt = DateiLegen("alt.ifd", Eingabe);
    const std::string Neu = DateiLegen("neu.ifd", "");
    const auto Grundlage = [](Indexwelt& Welt) {
        Welt.Index.Programmmodus = ModusIndexdatei;
        for (const std::string_view Pfad : {"a", "/m/b.mp3", "C:\\c.mp3"})
            SatzAnhängen(Welt.Index, Pfad, {});
    };
    const auto Laden = [](Indexwelt& Welt, const std::string& Datei) {
        const auto Finden = [&](std::string_view Pfad) {
            for (Satznummer Nummer = 1; Nummer <= Welt.Index.IndexAnzahl(); ++Nummer) {
                if (Welt.Index.Sätze.Pfad(Nummer) == Pfad) return Nummer;
            }
            return Satznummer{0};
        };
        return DateiLadenIndexFelder(Welt.Index, Welt.Umgebung, Datei, Finden, false).has_value();
    };
    const auto Speichern = [&](const Indexwelt& Welt) {
        Fordern(IndexFelderSpeichern(Welt.Index, Welt.Umgebung, Neu, false), "Die Felder werden geschrieben");
        return DateiInhalt(Neu);
    };
    Indexwelt Erste;
    Grundlage(Erste);
    if (!Laden(Erste, Alt)) return;
    for (Satznummer Nummer = 1; Nummer <= Erste.Index.IndexAnzahl(); ++Nummer) {
        // A length of 0 ends the values of a line: what stands behind an empty one does not come back.
        const Datensatz Satz = Erste.Index.Sätze.Lesen(Nummer);
        const bool Lücke = Satz.AbspielDatum.empty() || Satz.BenutzerDaten.empty();
        if (Lücke && (!Satz.BenutzerDaten.empty() || Satz.Qualität != 0)) return;
    }
    const std::string Einmal = Speichern(Erste);
    Indexwelt Zweite;
    Grundlage(Zweite);
    Fordern(Laden(Zweite, Neu), "Geschriebene Felder lassen sich lesen");
    SätzeVergleichen("Die Felder kommen wieder", Erste.Index.Sätze, Zweite.Index.Sätze);
    Gleich("Das zweite Schreiben gibt dieselben Bytes", Einmal, Speichern(Zweite));
}

}  // namespace liedwerk::fuzz
