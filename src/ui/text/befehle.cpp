#include "ui/text/befehle.h"

#include <algorithm>
#include <cstdint>

#include "basis/oberflaeche.h"
#include "suche/sortieren.h"
#include "ui/text/ausgabe.h"

namespace liedwerk {
namespace {

constexpr std::size_t Beliebig = SIZE_MAX;

const std::vector<Befehl>& Befehlstabelle() {
    static const std::vector<Befehl> Alle = {
        {"abspielen",
         "abspielen [--anhaengen] [--standard] NUMMER...",
         "Übergibt Dateien an den Audioplayer (Einstellung WinampPfad), Bilder und Anderes an ihr Programm.\n"
         "  --anhaengen          an die Liste des Players anhängen, ohne zu spielen\n"
         "  --standard           jede Datei mit dem Programm öffnen, das der Desktop dafür vorsieht",
         {{"--anhaengen"}, {"--standard"}},
         1,
         Beliebig,
         AbspielenAusführen},
        {"aufraeumen",
         "aufraeumen --methode 0..9 [NUMMER...]",
         "Findet doppelte und zweifelhafte Dateien, unter allen Datensätzen oder den genannten. Nichts wird "
         "verändert.\n"
         "  --methode 0    gleicher Dateiname\n"
         "  --methode 1    gleicher Pfad- und Dateiname\n"
         "  --methode 2    gleicher Titel und Interpret im ID3v1-TAG\n"
         "  --methode 3    gleicher Titel und Interpret im ID3v2-TAG\n"
         "  --methode 4    gleiche Größe\n"
         "  --methode 5    Dateien, die nicht existieren\n"
         "  --methode 6    ohne ID3v1-TAG nach dem Index, 7: Dateien neu lesen\n"
         "  --methode 8    ohne ID3v2-TAG nach dem Index, 9: Dateien neu lesen",
         {{"--methode", true}},
         0,
         Beliebig,
         AufräumenAusführen},
        {"autodj",
         "autodj [--funktion 0|1] [--maximum N] [--zeit N] [--einheit n|h|d] [--seltener] [--haeufiger] "
         "[--genre G]... [--saat N]",
         "Stellt Dateien nach der Abspiel-Statistik zusammen.\n"
         "  --funktion 0|1       0 häufig benutzte zufällig, 1 nach Top-Listen (sonst 0)\n"
         "  --maximum N          höchstens so viele Dateien\n"
         "  --zeit N             0: in dieser Zeit gespielte auslassen; 1: nur in dieser Zeit gespielte\n"
         "  --einheit n|h|d      der Zeit: Minuten, Stunden, Tage (sonst d)\n"
         "  --seltener           vor kurzem oft gespielte nach hinten\n"
         "  --haeufiger          vor längerer Zeit oft gespielte nach vorn\n"
         "  --genre G            nur dieses Genre (mehrfach möglich; sonst alle), auch "
         "\"(Dateien ohne Genre)\"\n"
         "  --saat N             legt die Zufallszahlen fest",
         {{"--funktion", true},
          {"--maximum", true},
          {"--zeit", true},
          {"--einheit", true},
          {"--seltener"},
          {"--haeufiger"},
          {"--genre", true},
          {"--saat", true}},
         0,
         0,
         AutoDjAusführen},
        {"autotag",
         "autotag --format F [--ziel 0|1|2] [--schreiben] DATEI...",
         "Zeigt die Felder, die AutoTAG aus den Dateinamen erkennt.\n"
         "  --format F           etwa \"%Interpret% - %Titel%\" oder \"%automatik%\"\n"
         "  --ziel 0|1|2         füllt beide TAGs (0), nur ID3v1 (1) oder nur ID3v2 (2)\n"
         "  --schreiben          speichert die TAGs in den Dateien",
         {{"--format", true}, {"--ziel", true}, {"--schreiben"}},
         1,
         Beliebig,
         AutotagAusführen},
        {"cd-cache",
         "cd-cache",
         "Zeigt die CDs, deren Daten im Ordner \"CDDB\" des Programm-Ordners liegen.",
         {},
         0,
         0,
         CdCacheAusführen},
        {"cd-info",
         "cd-info LAUFWERK",
         "Zeigt das Inhaltsverzeichnis einer Audio-CD: eines Laufwerks (/dev/sr0) oder eines Abbildes (.cue, "
         ".toc).",
         {},
         1,
         1,
         CdInfoAusführen},
        {"cddb",
         "cddb [--wahl N] LAUFWERK",
         "Zeigt die Daten einer Audio-CD (Laufwerk oder Abbild): die gemerkten, sonst die des Servers in der "
         "Einstellung CDDBServer, die dann gemerkt werden.\n"
         "  --wahl N             die N-te CD, wenn mehrere passen",
         {{"--wahl", true}},
         1,
         1,
         CddbAusführen},
        {"datei-info",
         "datei-info [--lesecode 1111] [--zeilen-entfernen] DATEI...",
         "Liest Mediendateien und zeigt alles, was gefunden wurde. Ein Index wird nicht gebraucht.\n"
         "  --lesecode CODE      vier Stellen 1 oder 0: ID3v1, ID3v2, Datenstrom, Lyrics (sonst 1111)\n"
         "  --zeilen-entfernen   Zeilenenden in Kommentaren werden zu Leerzeichen",
         {{"--lesecode", true}, {"--zeilen-entfernen"}},
         1,
         Beliebig,
         DateiInfoAusführen},
        {"dateiinfo-text",
         "dateiinfo-text DATEI...",
         "Zeigt den Informationstext von Dateien und die Texte zu deren TAGs.",
         {},
         1,
         Beliebig,
         DateiInfoTextAusführen},
        {"export",
         "export --format text|html|playliste|tabelle|m3u8|json [--trennzeichen "
         "komma|tabulator|semikolon|leerzeichen] [--anfuehrungszeichen] [--spalten A,B,...] [--abfrage "
         "\"F|C|BEGRIFF\"]... ZIEL",
         "Schreibt Datensätze als Liste in eine Datei, alle oder die Treffer der Abfragen.\n"
         "  --format text        Textdatei mit Trennzeichen\n"
         "  --format html        HTML-Seite\n"
         "  --format playliste   PLS, wenn ZIEL auf \"pls\" endet, sonst M3U\n"
         "  --format tabelle     CSV in UTF-8 für Tabellenkalkulationen\n"
         "  --format m3u8, json  Playliste in UTF-8, JSON-Datei\n"
         "  --trennzeichen T     für text (sonst nach den Einstellungen)\n"
         "  --anfuehrungszeichen für text: Werte in Anführungszeichen\n"
         "  --spalten A,B,...    Felder (sonst Interpret,Titel,Album,Pfad+Dateiname)\n"
         "  --abfrage F|C|B      Abfrage aus Feld, Code und Begriff; mehrere schränken ein",
         {{"--format", true},
          {"--trennzeichen", true},
          {"--anfuehrungszeichen"},
          {"--spalten", true},
          {"--abfrage", true}},
         1,
         1,
         ExportAusführen},
        {"felder-lesen",
         "felder-lesen DATEI",
         "Übernimmt Abspiel-Häufigkeit, Abspiel-Datum, Benutzer-Daten und Qualität aus einer "
         "IndexFelder-Datei (.ifd) und speichert den Index. Vorher wird gefragt (siehe --ja).",
         {},
         1,
         1,
         FelderLesenAusführen},
        {"felder-schreiben",
         "felder-schreiben DATEI",
         "Schreibt Abspiel-Häufigkeit, Abspiel-Datum, Benutzer-Daten und Qualität aller Datensätze in eine "
         "IndexFelder-Datei (.ifd).",
         {},
         1,
         1,
         FelderSchreibenAusführen},
        {"feldwerte",
         "feldwerte --felder A,B,... [--modus 0|1] [--anderer-tag] [NUMMER...]",
         "Zeigt Felder von Datensätzen, alle oder die mit den genannten Nummern.\n"
         "  --felder A,B,...     Namen der Felder wie in der Liste, auch Vorlagen wie %Titel%\n"
         "  --modus 0|1          0 Sortierform, 1 Anzeigeform (sonst 1)\n"
         "  --anderer-tag        fehlt der TAG eines Feldes, gilt der andere",
         {{"--felder", true}, {"--modus", true}, {"--anderer-tag"}},
         0,
         Beliebig,
         FeldwerteAusführen},
        {"hinzufuegen",
         "hinzufuegen [--ohne-unterordner] [--nicht-bei TEXT] PFAD...",
         "Fügt Ordner und Dateien zum Index hinzu und speichert diesen. Ein fehlender Index wird angelegt.\n"
         "Eine Playliste (.m3u, .pls) steht für die Dateien, die sie nennt.\n"
         "  --ohne-unterordner   nur die Dateien der Ordner selbst\n"
         "  --nicht-bei TEXT     lässt in Ordnern Dateien aus, deren Name den Text enthält",
         {{"--ohne-unterordner"}, {"--nicht-bei", true}},
         1,
         Beliebig,
         HinzufügenAusführen},
        {"index-info", "index-info", "Zeigt Umfang und Optionen des Index.", {}, 0, 0, IndexInfoAusführen},
        {"index-neu",
         "index-neu",
         "Legt eine leere Indexdatei an. Gibt es die Datei schon, wird gefragt (siehe --ja).",
         {},
         0,
         0,
         IndexNeuAusführen},
        {"index-speichern",
         "index-speichern [--ausgabe DATEI]",
         "Lädt und speichert den Index.\n"
         "  --ausgabe DATEI      speichert in eine andere Datei",
         {{"--ausgabe", true}},
         0,
         0,
         IndexSpeichernAusführen},
        {"kopieren",
         "kopieren --ziel ORDNER [--verschieben] [--struktur] [--ersetzen 0..4] NUMMER...",
         "Kopiert oder verschiebt die Dateien von Datensätzen in einen Ordner. Beim Verschieben folgt der "
         "Index.\n"
         "  --ziel ORDNER        Zielordner; er wird angelegt, wenn er fehlt\n"
         "  --verschieben        verschiebt, statt zu kopieren\n"
         "  --struktur           legt die Ordner der Quelle unter dem Zielordner an\n"
         "  --ersetzen 0..4      vorhandene Dateien: 0 melden und auslassen, 1 nie ersetzen, 2 immer "
         "ersetzen,\n"
         "                       3 wie 4, sonst melden, 4 nur ersetzen, wenn die Quelle älter ist (sonst 0)",
         {{"--ziel", true}, {"--verschieben"}, {"--struktur"}, {"--ersetzen", true}},
         1,
         Beliebig,
         KopierenAusführen},
        {"mehrfachsuche",
         "mehrfachsuche DATEI",
         "Sucht nach jeder Zeile der Datei, etwa der Titelliste einer CD. \"-\" liest die Standardeingabe.",
         {},
         1,
         1,
         MehrfachsucheAusführen},
        {"saetze",
         "saetze [NUMMER...]",
         "Zeigt die Datensätze, alle oder die mit den genannten Nummern.",
         {},
         0,
         Beliebig,
         SätzeAusführen},
        {"sortieren",
         "sortieren [--absteigend] [--ausgabe DATEI] K1 [K2 [K3]]",
         "Sortiert den Index nach bis zu drei Feldern und speichert diesen.\n"
         "  --absteigend         kehrt die Reihenfolge um\n"
         "  --ausgabe DATEI      speichert in eine andere Datei",
         {{"--absteigend"}, {"--ausgabe", true}},
         1,
         SortierkriterienHöchstens,
         SortierenAusführen},
        {"spieler",
         "spieler zustand|titel|spielen|pause|stopp|vor|zurueck|position S|lautstaerke N|ende",
         "Steuert den laufenden Audioplayer (Einstellung WinampPfad) und zeigt, was er tut.\n"
         "  position S           springt zu dieser Sekunde des Titels\n"
         "  lautstaerke N        0 bis 255",
         {},
         1,
         2,
         SpielerAusführen},
        {"suchen",
         "suchen [--feld F] [--code C] [--abfrage \"F|C|BEGRIFF\"]... [--spalten A,B,...] [--zaehlen] "
         "[BEGRIFF]",
         "Sucht im Index. Ohne BEGRIFF und Abfragen gehört jeder Datensatz zum Ergebnis.\n"
         "  --feld F             Feld, in dem der Begriff gesucht wird (sonst \"(Standardsuche)\")\n"
         "  --code C             vier Ziffern: MUSS 0 / DARF NICHT 1, UND 0 / ODER 1, Art 0 bis 6, beide "
         "TAGs 1\n"
         "  --abfrage F|C|B      weitere Abfrage aus Feld, Code und Begriff; mehrere schränken ein\n"
         "  --spalten A,B,...    gezeigte Felder (sonst Interpret,Titel,Album,Pfad+Dateiname)\n"
         "  --zaehlen            nur die Anzahl",
         {{"--feld", true}, {"--code", true}, {"--abfrage", true}, {"--spalten", true}, {"--zaehlen"}},
         0,
         1,
         SuchenAusführen},
        {"synchronisieren",
         "synchronisieren",
         "Bringt den Index auf den Stand der Ordner, die in seinen Optionen stehen, und speichert diesen.\n"
         "Dateien auf Datenträgern, die nicht eingelegt sind, bleiben im Index.\n"
         "Mit --setze SyncGeänderteLesen=1 werden geänderte Dateien neu gelesen.",
         {},
         0,
         0,
         SynchronisierenAusführen},
        {"tag-aufraeumen",
         "tag-aufraeumen DATEI...",
         "Entfernt nichtssagende TAGs, ergänzt fehlende aus dem Dateinamen und macht die Texte lesbar. "
         "Vorher "
         "wird gefragt (siehe --ja). Das Erkennungs-Format ist die Einstellung AutoTagAktuell.",
         {},
         1,
         Beliebig,
         TagAufräumenAusführen},
        {"tag-entfernen",
         "tag-entfernen [--v1] [--v2] [--lyrics] DATEI...",
         "Entfernt TAGs aus Dateien. Mindestens ein TAG ist zu nennen. Hat der Index einen Datensatz der "
         "Datei, "
         "wird dieser nachgeführt.\n"
         "  --v1                 den ID3v1-TAG\n"
         "  --v2                 den ID3v2-TAG\n"
         "  --lyrics             den Lyrics-TAG",
         {{"--v1"}, {"--v2"}, {"--lyrics"}},
         1,
         Beliebig,
         TagEntfernenAusführen},
        {"tag-funktion",
         "tag-funktion [--feld F --text T] \"NAME\" \"AUSWAHL\" DATEI...",
         "Führt eine Funktion des TAG-Editors aus. NAME und AUSWAHL stehen wie in dessen Listen, etwa "
         "\"Schreibweise: Groß\" und \"Alle ID3v1-TAGs\". Mit einer Auswahl \"Alle...\" und vor dem "
         "Entfernen wird gefragt (siehe --ja).\n"
         "  --feld F --text T    für \"Felder kopieren...\": das Feld und sein neuer Text",
         {{"--feld", true}, {"--text", true}},
         3,
         Beliebig,
         TagFunktionAusführen},
        {"tag-schreiben",
         "tag-schreiben [--v1 FELD=WERT]... [--v2 FELD=WERT]... [--liedertext DATEI] DATEI",
         "Setzt Felder wie der TAG-Editor und speichert die TAGs, zu denen etwas genannt wurde. Hat der "
         "Index "
         "einen Datensatz der Datei, wird dieser nachgeführt.\n"
         "  --v1 FELD=WERT       Titel, Interpret, Album, Jahr, Kommentar, Titelnummer, Genre (Nummer oder "
         "Name)\n"
         "  --v2 FELD=WERT       V2Titel, V2Interpret, V2Album, V2Jahr, V2Kommentar, V2Genre, V2Titelnummer, "
         "V2Qualität (0 bis 255) ...\n"
         "  --liedertext DATEI   der Liedertext; \"-\" liest die Standardeingabe",
         {{"--v1", true}, {"--v2", true}, {"--liedertext", true}},
         1,
         1,
         TagSchreibenAusführen},
        {"termin-naechster",
         "termin-naechster NUMMER",
         "Zeigt, wann ein Ereignis das nächste Mal fällig ist.",
         {},
         1,
         1,
         TerminNächsterAusführen},
        {"termine", "termine", "Zeigt die Ereignisse des Index.", {}, 0, 0, TermineAusführen},
        {"termine-pruefen",
         "termine-pruefen",
         "Meldet fällige Ereignisse, jedes mit \"Ja, wie hinterlegt\" beantwortet, und speichert den Index.",
         {},
         0,
         0,
         TerminePrüfenAusführen},
        {"titel-erkennen",
         "titel-erkennen TITEL SEKUNDEN",
         "Zählt die Dateien, zu denen der Titel eines Players (\"Interpret - Titel\") gehört, wenn er lange "
         "genug spielt.",
         {},
         2,
         2,
         TitelErkennenAusführen},
        {"umbenennen",
         "umbenennen --format F [--probe] DATEI...",
         "Benennt Dateien nach ihren Feldern um. Dateien des Index folgen diesem; ein Index wird nicht "
         "gebraucht.\n"
         "  --format F           Name ohne Endung, etwa \"%Interpret% - %Titel%\"; \"\\\" und \"/\" legen "
         "Ordner an\n"
         "  --probe              zeigt nur, was geschehen würde",
         {{"--format", true}, {"--probe"}},
         1,
         Beliebig,
         UmbenennenAusführen},
        {"vorschlaege",
         "vorschlaege FELD ANFANG",
         "Zeigt die Werte eines Feldes, die mit dem Anfang beginnen.",
         {},
         2,
         2,
         VorschlägeAusführen},
        {"xmcd",
         "xmcd DATEI",
         "Zeigt die Daten einer CD aus einer xmcd-Datei oder einer Datei des Ordners \"CDDB\" (\"-\" liest "
         "die Standardeingabe).",
         {},
         1,
         1,
         XmcdAusführen},
    };
    return Alle;
}

constexpr std::string_view Globalhilfe =
    "Aufruf: liedwerk-cli [GLOBAL ...] BEFEHL [OPTIONEN] [ARGUMENTE]\n"
    "\n"
    "Globale Optionen:\n"
    "  --index DATEI             die Indexdatei (sonst die der Einstellungen, sonst lwStamm.lwi im "
    "Programm-Ordner)\n"
    "  --programmordner ORDNER   steht für den Programm-Ordner\n"
    "  --einstellungen DATEI     Einstellungen in dieser Datei; sie wird angelegt, wenn sie fehlt\n"
    "  --setze NAME=WERT         eine Einstellung nur für diesen Lauf (mehrfach möglich)\n"
    "  --jetzt ZEITPUNKT         die Uhr dieses Laufs, \"dd.mm.yyyy hh:nn:ss\"\n"
    "  --ja, --nein              Antwort auf jede Frage (sonst --nein: nichts wird ungefragt ersetzt oder "
    "gelöscht)\n"
    "  --json                    das Ergebnis als ein JSON-Dokument\n"
    "  --still                   keine Fortschrittsanzeige\n"
    "  --hilfe, --version        auch hinter einem Befehl: dessen Hilfe\n"
    "  --                        beendet die Optionen\n"
    "\n"
    "Befehle:\n";

constexpr std::string_view Ausgangshilfe =
    "\n"
    "Ausgang: 0 gelungen, 1 fehlgeschlagen oder abgelehnt, 2 falscher Aufruf.\n"
    "'liedwerk-cli BEFEHL --hilfe' erklärt einen Befehl.\n";

}  // namespace

std::span<const Befehl> Befehle() {
    return Befehlstabelle();
}

const Befehl* BefehlFinden(std::string_view Name) {
    const auto Alle = Befehle();
    const auto Fund =
        std::lower_bound(Alle.begin(), Alle.end(), Name,
                         [](const Befehl& Eintrag, std::string_view N) { return Eintrag.Name < N; });
    return Fund != Alle.end() && Fund->Name == Name ? &*Fund : nullptr;
}

std::string Hilfetext() {
    std::string Text(Globalhilfe);
    for (const auto& Eintrag : Befehle()) {
        Text += "  ";
        Text += Eintrag.Aufruf;
        Text += '\n';
    }
    Text += Ausgangshilfe;
    return Text;
}

std::string Aufrufzeile(const Befehl& Eintrag) {
    return "Aufruf: liedwerk-cli [GLOBAL ...] " + std::string(Eintrag.Aufruf) + "\n";
}

std::string Hilfetext(const Befehl& Eintrag) {
    return Aufrufzeile(Eintrag) + "\n" + std::string(Eintrag.Hilfe) +
           "\n\nGlobale Optionen: siehe 'liedwerk-cli --hilfe'.\n";
}

}  // namespace liedwerk
