// liedwerk-spielerluegen [NAME]: what the program makes of players that lie. Each lie of luegen.cpp (whose
// name holds NAME) is told by a process of its own on a bus of its own, while the real channel, recognition
// and panel of the window look at it and send commands. A breach is a value out of its range, a count of a
// play that did not happen, an event loop that stood still for more than 100 ms in three runs, memory that
// grows. The last line counts the cases.
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <malloc.h>
#include <optional>
#include <unistd.h>

#include "abspielen/titelerkennung.h"
#include "haerte/spieler/luegen.h"
#include "plattform/qt/mprisspieler.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/spieler.h"
#include "plattform/speicher/welt.h"
#include "ui/qt/spielerleiste.h"

using namespace Qt::StringLiterals;

namespace liedwerk::haerte {
namespace {

constexpr int Dauer = 1200;                        // milliseconds that a lie is looked at
constexpr int Sturmdauer = 6000;                   // the same where it could grow
constexpr int Vorlauf = 1000;                      // until the player is there
constexpr int Raffung = 60;                        // the calendar runs so many times faster
constexpr int Befehlstakt = 100;                   // milliseconds
constexpr qint64 HöchsteLatenz = 100;              // milliseconds
constexpr std::int64_t HöchsterZuwachs = 8192;     // KiB of a lie, in a storm in its second half
constexpr std::size_t LängsterTitel = 6100;        // bytes: two texts of 1000 characters and what joins them
constexpr std::int64_t LängsteDauer = 10'000'000;  // seconds
constexpr Satznummer Gespielter = 1;
constexpr Satznummer Anderer = 2;

std::int64_t Angabe(const char* Datei, const std::string& Name) {
    std::ifstream Quelle(Datei);
    for (std::string Zeile; std::getline(Quelle, Zeile);)
        if (Zeile.starts_with(Name)) return std::stoll(Zeile.substr(Name.size()));
    return 0;
}

std::int64_t Speicher() {
    ::malloc_trim(0);
    return Angabe("/proc/self/status", "VmRSS:");
}

double Rechenzeit() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// What the window of the program does with its player, and the look at it.
class Fenster {
  public:
    explicit Fenster(bool MitBefehlen) : Leiste(nullptr) {
        Werte.WinampPfad = "/x/probe";
        Werte.AbspielStatistikSpeichern = 1;
        Anhängen("/m/lied.mp3", "Anna", "Morgen");
        Anhängen("/m/anders.mp3", "Otto", "Nacht");
        for (int i = 0; i < 20'000; ++i)
            Anhängen("/m/" + std::to_string(i) + ".mp3", "Wer", "Was " + std::to_string(i));
        Kanal.Geändert = [this] { Ansehen(); };
        Leiste.show();
        Verbinden(Sekunde, 1000, [this] { Ansehen(); });
        if (MitBefehlen) Verbinden(Befehle, Befehlstakt, [this] { Befehlen(); });
        Puls.setTimerType(Qt::PreciseTimer);
        Verbinden(Puls, 5, [this] { Latenz = std::max(Latenz, Zuletzt.restart() - 5); });
        Zuletzt.start();
        Ganz.start();
    }
    Fenster(const Fenster&) = delete;
    Fenster& operator=(const Fenster&) = delete;
    ~Fenster() { Kanal.Geändert = nullptr; }

    bool Gefunden() { return PlayerSuchen(Steuerung, false); }
    int Gezählt(Satznummer Nummer) const {
        return static_cast<int>(Index.Sätze.Zahl(Nummer, FeldAbspielHäufigkeit));
    }
    void Neubeginnen() {
        Latenz = 0;
        Zuletzt.restart();
    }
    qint64 Latenz = 0;  // milliseconds that the event loop stood still at most
    std::vector<std::string> Mängel;

  private:
    void Verbinden(QTimer& Uhr, int Abstand, const std::function<void()>& Tun) {
        QObject::connect(&Uhr, &QTimer::timeout, Tun);
        Uhr.start(Abstand);
    }
    void Anhängen(const std::string& Pfad, const std::string& Interpret, const std::string& Titel) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Interpret = Interpret;
        Satz.Titel = Titel;
        SatzAnhängen(Index, Pfad, Satz);
    }
    void Fordern(bool Wahr, const char* Text) {
        if (!Wahr && Mängel.size() < 5) Mängel.emplace_back(Text);
    }
    void Ansehen() {
        Zeit.Punkt = AusKalendersekunden(Kalendersekunden(Anfang) + Ganz.elapsed() * Raffung / 1000);
        const Spielerstand Stand = SpielerAblesen(Steuerung);
        if (Stand.Gefunden && Stand.Zustand != PlayerZustand::Stopped)
            TitelErkennen(Erkennung, Index, Werte, Person,
                          {Stand.Titel, Stand.Lage.Dateien, Stand.Lage.Durchgang}, Zeit.Punkt);
        if (Erkennung.Suche) QTimer::singleShot(0, &Leiste, [this] { Ansehen(); });
        Leiste.Zeigen(Stand, Erkennung.TitelErkannt, true);
        Urteilen(Stand);
    }
    void Urteilen(const Spielerstand& Stand) {
        const Spielerlage& Lage = Stand.Lage;
        Fordern(Stand.Position >= -1 && Stand.Position <= LängsteDauer, "Position");
        Fordern(Stand.Länge >= -1 && Stand.Länge <= LängsteDauer, "Länge");
        Fordern(!Lage.Lautstärke || (*Lage.Lautstärke >= 0 && *Lage.Lautstärke <= 255), "Lautstärke");
        Fordern(Lage.Offen >= 0 && Lage.Offen <= 32, "offene Befehle");
        Fordern(Lage.Titel.size() <= LängsterTitel, "Titel zu lang");
        Fordern(
            std::ranges::none_of(
                Lage.Titel, [](char Byte) { return static_cast<unsigned char>(Byte) < ' ' && Byte != '\t'; }),
            "Steuerzeichen im Titel");
        for (const std::string& Pfad : Lage.Dateien)
            Fordern(Pfad.starts_with('/') && Pfad.find('\0') == std::string::npos && Pfad.size() < 100'000,
                    "Pfad");
    }
    void Befehlen() {
        switch (Befehlsnummer++ % 4) {
            case 0:
                return PlayerSpringen(Steuerung, 10);
            case 1:
                return PlayerLautstärkeSetzen(Steuerung, 100);
            case 2:
                return PlayerBalanceSetzen(Steuerung, -100);
            default:
                PlayerBefehl(Steuerung, SpielerNächster, false);
        }
    }

    const Zeitpunkt Anfang{2026, 11, 21, 12, 0, 0};
    Katalog Index;
    Einstellungen Werte;
    Titelerkennung Erkennung;
    speicher::Person Person;
    speicher::StehendeUhr Zeit;
    speicher::Programme Programme;
    Mprisspieler Kanal;
    Spielersteuerung Steuerung{Kanal, Programme, Werte, Person, Zeit};
    Spielerleiste Leiste;
    QTimer Sekunde;
    QTimer Befehle;
    QTimer Puls;
    QElapsedTimer Zuletzt;
    QElapsedTimer Ganz;
    int Befehlsnummer = 0;
};

// Turns the event loop for so long, or until something is so.
void Drehen(
    int Höchstens, const std::function<bool()>& Bis = [] { return false; }) {
    QEventLoop Schleife;
    QElapsedTimer Uhr;
    Uhr.start();
    while (Uhr.elapsed() < Höchstens && !Bis()) {
        QTimer::singleShot(20, &Schleife, &QEventLoop::quit);
        Schleife.exec();
    }
}

struct Ergebnis {
    qint64 Latenz = 0;
    std::int64_t Zuwachs = 0;      // KiB: in the second half of a storm, else once the player has gone
    std::int64_t Höchststand = 0;  // KiB above the begin
    double Last = 0;               // part of a processor
    std::vector<std::string> Mängel;
};

Ergebnis Erleben(const Lüge& Eine, int Nummer) {
    Ergebnis Alles;
    QProcess Spieler;
    std::ofstream("/proc/self/clear_refs") << 5;
    const std::int64_t Beginn = Speicher();
    const bool Stürmt = Eine.Tun != Treiben::Nichts;
    {
        // A jump of ours hides what the player does with its position.
        Fenster Hier(Eine.Tun != Treiben::Zurück);
        static_cast<void>(Hier.Gefunden());
        Spieler.start(QCoreApplication::applicationFilePath(), {u"luegner"_s, QString::number(Nummer)});
        if (!Spieler.waitForStarted()) throw std::runtime_error("kein Lügner");
        Drehen(Vorlauf, [&] { return Hier.Gefunden(); });
        Hier.Neubeginnen();
        const int Hälfte = (Stürmt ? Sturmdauer : Dauer) / 2;
        const double Vorher = Rechenzeit();
        Drehen(Hälfte);
        const std::int64_t Mitte = Speicher();
        Drehen(Hälfte);
        Alles.Last = (Rechenzeit() - Vorher) * 1000 / (2 * Hälfte);
        Alles.Zuwachs = Speicher() - Mitte;
        Alles.Höchststand = Angabe("/proc/self/status", "VmHWM:") - Beginn;
        Alles.Latenz = Hier.Latenz;
        Alles.Mängel = Hier.Mängel;
        const int Richtige = Hier.Gezählt(Eine.NachPfad ? Anderer : Gespielter);
        const int Falsche = Hier.Gezählt(Eine.NachPfad ? Gespielter : Anderer);
        if (Richtige != Eine.Gezählt || Falsche != 0)
            Alles.Mängel.push_back("gezählt " + std::to_string(Richtige) + " und " + std::to_string(Falsche));
        if (Spieler.state() != QProcess::Running) Alles.Mängel.emplace_back("der Lügner ist am Ende");
    }
    Spieler.kill();
    Spieler.waitForFinished();
    if (!Stürmt) Alles.Zuwachs = Speicher() - Beginn;
    return Alles;
}

bool Prüfen(const Lüge& Eine, int Nummer) {
    Ergebnis Alles = Erleben(Eine, Nummer);
    // Other work on the machine can hold a loop up, but hardly three times; what the libraries keep for the
    // next big message they keep once.
    for (int Mal = 0; Mal < 2 && (Alles.Latenz > HöchsteLatenz || Alles.Zuwachs > HöchsterZuwachs); ++Mal)
        Alles = Erleben(Eine, Nummer);
    if (Alles.Latenz > HöchsteLatenz) Alles.Mängel.emplace_back("das Fenster stand");
    if (Alles.Zuwachs > HöchsterZuwachs) Alles.Mängel.emplace_back("Speicher wächst");
    std::printf("%5lld ms  %4.0f %%  %7lld KiB  %7lld KiB  %s\n", static_cast<long long>(Alles.Latenz),
                100 * Alles.Last, static_cast<long long>(Alles.Zuwachs),
                static_cast<long long>(Alles.Höchststand), Eine.Name.toUtf8().constData());
    for (const std::string& Mangel : Alles.Mängel)
        std::printf("BRUCH %s\n", Mangel.c_str());
    std::fflush(stdout);
    return Alles.Mängel.empty();
}

int Ausführen(const QString& Gesucht) {
    QProcess Bus;
    Bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    if (!Bus.waitForReadyRead(5000)) throw std::runtime_error("dbus-daemon fehlt");
    qputenv("DBUS_SESSION_BUS_ADDRESS", Bus.readLine().trimmed());
    int Bestanden = 0;
    int Misslungen = 0;
    std::printf("Stillstand   Last   Zuwachs  Höchststand  Lüge\n");
    const std::vector<Lüge> Alle = AlleLügen();
    Erleben(Alle.front(), 0);  // what the program needs but once
    for (std::size_t i = 0; i < Alle.size(); ++i) {
        if (!Alle[i].Name.contains(Gesucht)) continue;
        ++(Prüfen(Alle[i], static_cast<int>(i)) ? Bestanden : Misslungen);
    }
    Bus.kill();
    Bus.waitForFinished();
    std::printf("%d bestanden, %d misslungen\n", Bestanden, Misslungen);
    return Misslungen == 0 ? 0 : 1;
}

}  // namespace
}  // namespace liedwerk::haerte

int main(int Anzahl, char** Argumente) {
    using namespace liedwerk::haerte;
    try {
        if (Anzahl == 3 && QLatin1String(Argumente[1]) == QLatin1String("luegner")) {
            const QCoreApplication Programm(Anzahl, Argumente);
            return Lügen(QString::fromLatin1(Argumente[2]).toInt());
        }
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QApplication Programm(Anzahl, Argumente);
        return Ausführen(Anzahl > 1 ? QString::fromUtf8(Argumente[1]) : QString());
    } catch (const std::exception& Fehler) {
        std::fprintf(stderr, "Fehler: %s\n", Fehler.what());
        return 1;
    }
}
