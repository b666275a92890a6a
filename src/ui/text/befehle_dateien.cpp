// Commands on media files, and bringing them into the index.
#include "basis/datei.h"
#include "core/hinzufuegelauf.h"
#include "core/listenlauf.h"
#include "core/suchlauf.h"
#include "core/synchronisierlauf.h"
#include "medien/infotext.h"
#include "plattform/endesignal.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/satz.h"

namespace liedwerk {
namespace {

// False, with a message, when the file is missing.
bool DateiPrüfen(const std::string& Pfad) {
    if (DateiExistiert(Pfad)) return true;
    Fehlermelden("Die Datei '" + Pfad + "' wurde nicht gefunden.");
    return false;
}

struct Zuwachs {
    std::vector<std::string> Dateien;
    bool Gelungen = true;
};

// Adds the folders and the files of the play lists among the paths, and collects the other files; what is
// none of them is told and passed over.
Zuwachs SammlungenHinzufügen(Programmlauf& Lauf, const std::vector<std::string>& Pfade,
                             const Befehlseingabe& Eingabe) {
    Zuwachs Ergebnis;
    for (const auto& Pfad : Pfade) {
        if (AlsOrdnerHinzufügbar(Pfad)) {
            Ordnerauftrag Auftrag;
            Auftrag.Ordner = Pfad;
            Auftrag.Unterordner = !Eingabe.Hat("--ohne-unterordner");
            Auftrag.NichtBeiText = Eingabe.Wert("--nicht-bei").value_or("");
            if (OrdnerHinzufügenLauf(Lauf.Programm(), Auftrag, {false, false}) < 0) Ergebnis.Gelungen = false;
        } else if (IstPlayliste(Pfad)) {
            if (PlaylistLesen(Lauf.Programm(), Pfad, {false, false}) < 0) Ergebnis.Gelungen = false;
        } else if (DateiPrüfen(Pfad)) {
            Ergebnis.Dateien.push_back(Pfad);
        } else {
            Ergebnis.Gelungen = false;
        }
    }
    return Ergebnis;
}

}  // namespace

Ausgang DateiInfoAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    Programm.Index.Optionen.Dateitypen = Grundtypen(Programm.Werte.WeitereFormate == 1);
    const MedienLeser Leser = MedienleserVon(Programm);
    const Leseauftrag Auftrag{Lesecode::Lesen(Eingabe.Wert("--lesecode").value_or("1111")),
                              Eingabe.Hat("--zeilen-entfernen"), true, true};
    bool Gelungen = true;
    if (Lauf.Json()) Lauf.Dokument().ListeAnfang();
    for (const auto& Pfad : EingabePfade(Eingabe.Argumente)) {
        if (EndeVerlangt()) break;
        Gelungen = DateiPrüfen(Pfad) && Gelungen;
        const Datensatz Satz = Leser(Pfad, {}, Auftrag);
        if (Lauf.Json()) {
            SatzAlsJson(Lauf.Dokument(), 0, Pfad, Satz);
        } else {
            SatzAlsText(Lauf.Text(), 0, Pfad, Satz);
        }
    }
    if (Lauf.Json()) Lauf.Dokument().ListeEnde();
    return Lauf.Abschließen(Gelungen);
}

Ausgang DateiInfoTextAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    Programm.Index.Optionen.Dateitypen = Grundtypen(Programm.Werte.WeitereFormate == 1);
    const MedienLeser Leser = MedienleserVon(Programm);
    const Leseauftrag Auftrag{Lesecode::Lesen("1111"), false, true, true};
    bool Gelungen = true;
    JsonSchreiber& Ziel = Lauf.Dokument();
    if (Lauf.Json()) Ziel.ListeAnfang();
    for (const auto& Pfad : EingabePfade(Eingabe.Argumente)) {
        if (EndeVerlangt()) break;
        const bool Vorhanden = DateiPrüfen(Pfad);
        Gelungen = Vorhanden && Gelungen;
        const auto Texte = DateiinformationBilden(Pfad, Leser(Pfad, {}, Auftrag), Vorhanden);
        if (Lauf.Json()) {
            Ziel.ObjektAnfang();
            Ziel.Text("Pfad", Pfad);
            Ziel.Text("Info", Texte.Info);
            Ziel.Text("Id3v1", Texte.Id3v1);
            Ziel.Text("Id3v2", Texte.Id3v2);
            Ziel.Text("Lyrics", Texte.Lyrics);
            Ziel.ObjektEnde();
        } else {
            for (const auto& Text : {Texte.Info, Texte.Id3v1, Texte.Id3v2, Texte.Lyrics})
                Lauf.Text().Schreiben(Sichtbar(Text, true) + "\n");
        }
    }
    if (Lauf.Json()) Ziel.ListeEnde();
    return Lauf.Abschließen(Gelungen);
}

Ausgang HinzufügenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Pfade = EingabePfade(Eingabe.Argumente);
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden(true)) return Ausgang::Fehlgeschlagen;
    const Katalog& Index = Lauf.Programm().Index;
    const Satznummer Vorher = Index.IndexAnzahl();
    Zuwachs Ergebnis = SammlungenHinzufügen(Lauf, Pfade, Eingabe);
    if (!Ergebnis.Dateien.empty() &&
        DateienHinzufügenLauf(Lauf.Programm(), Ergebnis.Dateien, {false, false}, true) < 0)
        Ergebnis.Gelungen = false;
    // What was added must reach the disk even when a later path was wrong.
    Ergebnis.Gelungen = Lauf.GeändertesSpeichern() && Ergebnis.Gelungen;

    const Satznummer Neue = Index.IndexAnzahl() - Vorher;
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Zahl("Hinzugefügt", Neue);
        Lauf.Dokument().Zahl("IndexAnzahl", Index.IndexAnzahl());
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(std::to_string(Neue) + " Datei(en) hinzugefügt, " +
                              std::to_string(Index.IndexAnzahl()) + " Datei(en) im Index\n");
    }
    return Lauf.Abschließen(Ergebnis.Gelungen);
}

Ausgang SynchronisierenAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden(false)) return Ausgang::Fehlgeschlagen;
    const auto Ergebnis = SynchronisierenLauf(Lauf.Programm());
    const bool MitGeänderten = Lauf.Programm().Werte.SyncGeänderteLesen == 1;
    const bool Gespeichert = Lauf.GeändertesSpeichern();
    const Satznummer Anzahl = Lauf.Programm().Index.IndexAnzahl();
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Zahl("Entfernt", Ergebnis.Entfernt);
        Lauf.Dokument().Zahl("Hinzugefügt", Ergebnis.Hinzugefügt);
        if (MitGeänderten) Lauf.Dokument().Zahl("NeuGelesen", Ergebnis.NeuGelesen);
        Lauf.Dokument().Zahl("IndexAnzahl", Anzahl);
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(
            std::to_string(Ergebnis.Entfernt) + " Datei(en) entfernt, " +
            std::to_string(Ergebnis.Hinzugefügt) + " Datei(en) hinzugefügt, " +
            (MitGeänderten ? std::to_string(Ergebnis.NeuGelesen) + " Datei(en) neu gelesen, " : "") +
            std::to_string(Anzahl) + " Datei(en) im Index\n");
    }
    return Lauf.Abschließen(Ergebnis.Gelungen && Gespeichert);
}

}  // namespace liedwerk
