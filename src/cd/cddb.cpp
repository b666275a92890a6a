#include "cd/cddb.h"

#include <algorithm>
#include <array>

#include "basis/text.h"
#include "basis/uri.h"
#include "basis/zahl.h"
#include "cd/xmcd.h"

namespace liedwerk {
namespace {

constexpr std::int32_t OhneErgebnis = 1;
constexpr std::int32_t Fehlgeschlagen = -1;

void FehlerSetzen(CDStand& Stand, std::int32_t Nummer, std::string_view Text) {
    Stand.CDDBFehler = Nummer;
    Stand.CDDBFehlerText = Text;
}

void AbbruchSetzen(CDStand& Stand) {
    FehlerSetzen(Stand, OhneErgebnis, "Der Vorgang wurde abgebrochen.");
}

// A step of the progress display; false when the person has cancelled, which is set then.
bool Schritt(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Text) {
    if (Umgebung.Person.FortschrittZeigen(Text, 0)) return true;
    AbbruchSetzen(Stand);
    return false;
}

// The value of the first three characters; 0 when they are no number.
int StatusVon(std::string_view Antwort) {
    return GanzzahlLesen<std::int16_t>(LinkerTeil(Antwort, 3)).value_or(0);
}

bool IstBuchstabeOderZiffer(char Zeichen) {
    return (Zeichen >= 'a' && Zeichen <= 'z') || (Zeichen >= 'A' && Zeichen <= 'Z') ||
           (Zeichen >= '0' && Zeichen <= '9');
}

// What may stand as a category in a request: a server's word goes to another request only if it can do
// nothing there.
std::string_view Anfragekategorie(std::string_view Kategorie) {
    const bool Brauchbar = !Kategorie.empty() && std::ranges::all_of(Kategorie, [](char Zeichen) {
        return IstBuchstabeOderZiffer(Zeichen) || Zeichen == '-';
    });
    return Brauchbar ? Kategorie : "misc";
}

// The lines of a reply without what ends it: an empty line, a line with a point alone.
std::vector<std::string> Antwortzeilen(std::string_view Antwort) {
    std::vector<std::string> Zeilen = XmcdZeilen(Antwort);
    if (!Zeilen.empty() && Zeilen.back().empty()) Zeilen.pop_back();
    if (!Zeilen.empty()) Zeilen.pop_back();
    return Zeilen;
}

// Shows a step, logs and sends its request; false when nothing came back, with Fehltext for that unless the
// person has cancelled.
bool Fragen(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Schritttext,
            const std::string& Url, std::string& Antwort, std::string_view Fehltext) {
    if (!Schritt(Stand, Umgebung, Schritttext)) return false;
    CDProtokollieren(Stand.Daten, "Sende:");
    CDProtokollieren(Stand.Daten, Url);
    Antwort = CDDBAnfrage(Stand, Umgebung, Url, Schritttext);
    CDProtokollieren(Stand.Daten, "Resultat:");
    CDProtokollieren(Stand.Daten, Antwort);
    if (Stand.CDDBFehler == OhneErgebnis) return false;
    if (Antwort.empty()) FehlerSetzen(Stand, Fehlgeschlagen, Fehltext);
    return !Antwort.empty();
}

bool IstUmleitung(int Status) {
    constexpr std::array Umleitungen = {301, 302, 303, 307, 308};
    return std::ranges::find(Umleitungen, Status) != Umleitungen.end();
}

// What can be entered as a server: a name or an address, with or without a port.
bool IstServername(std::string_view Name) {
    constexpr std::size_t LängsterName = 259;  // of a host (RFC 1035), with its port
    return !Name.empty() && Name.size() <= LängsterName && std::ranges::all_of(Name, [](char Zeichen) {
        return IstBuchstabeOderZiffer(Zeichen) ||
               std::string_view(".-:[]").find(Zeichen) != std::string_view::npos;
    });
}

// The address of a server without the port that goes without saying.
std::string OhneNormalport(std::string_view Server) {
    constexpr std::string_view Port = ":80";
    std::string Adresse = CDDBServeradresse(Server);
    if (Adresse.ends_with(Port)) Adresse.resize(Adresse.size() - Port.size());
    return Adresse;
}

// What a person can do about a server that sends its guests elsewhere. Only the name of another server can be
// entered: neither another path nor another protocol.
std::string UmleitungText(std::string_view Ziel, std::string_view Server) {
    constexpr std::string_view Schema = "http://";
    std::string Text = "Der Server verweist auf eine andere Adresse.\n";
    if (BeginntMitOhneGroß(Ziel, Schema)) {
        const std::string_view Rest = Ziel.substr(Schema.size());
        const std::string Name = CDEinzeilig(Rest.substr(0, Rest.find_first_of("/?#")));
        if (IstServername(Name) && !GleichOhneGroß(OhneNormalport(Name), OhneNormalport(Server)))
            return Text + "Bitte geben Sie diese in den 'Optionen' als CD-Datenbank-Server an: " + Name;
    }
    constexpr std::size_t Gezeigt = 200;
    if (!Ziel.empty())
        Text += "Dort kann nicht gefragt werden: " + CDEinzeilig(LinkerTeil(Ziel, Gezeigt)) + "\n";
    return Text + "Bitte geben Sie in den 'Optionen' einen anderen CD-Datenbank-Server an.";
}

// One exchange with the progress display kept alive; the body as text, empty after a failure, which is logged
// then.
std::string Austauschen(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Schritttext,
                        const Httpanfrage& Anfrage) {
    Httpantwort Antwort{Httpfehler::Verbindung, {}, 0, {}};
    const auto Weiter = [&] { return Umgebung.Person.FortschrittZeigen(Schritttext, 0); };
    if (Umgebung.Netz) Antwort = Umgebung.Netz->Anfragen(Anfrage, Weiter);
    if (Antwort.Fehler == Httpfehler::Abgebrochen) AbbruchSetzen(Stand);
    if (Antwort.Fehler != Httpfehler::Keiner) {
        std::string Zeile = "CDDBAnfrage: Fehler - " + std::string(WinInetFehlerText(Antwort.Fehler));
        if (!Antwort.Einzelheit.empty()) Zeile += " (" + CDEinzeilig(Antwort.Einzelheit) + ")";
        CDProtokollieren(Stand.Daten, Zeile);
        return {};
    }
    if (Antwort.Status != 200)
        CDProtokollieren(Stand.Daten, "CDDBAnfrage: HTTP-Status " + std::to_string(Antwort.Status));
    if (IstUmleitung(Antwort.Status)) {
        FehlerSetzen(Stand, OhneErgebnis, UmleitungText(Antwort.Umleitung, Umgebung.Werte.CDDBServer));
        return {};
    }
    return XmcdTextVonBytes(Antwort.Inhalt);
}

// The category of "200 rock 8a0b2c0d Artist / Title": from the first blank behind the number to the next.
void KategorieLesen(CDDaten& Daten, std::string_view Antwort) {
    const auto Anfang = Antwort.find(' ', 3);
    const auto Ende = Anfang == std::string_view::npos ? Anfang : Antwort.find(' ', Anfang + 1);
    if (Ende != std::string_view::npos) Daten.Kategorie = Antwort.substr(Anfang + 1, Ende - Anfang - 1);
}

int TrefferWählen(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort, std::string& ID) {
    const std::vector<std::string> Zeilen = Antwortzeilen(Antwort);
    if (Zeilen.size() < 2) {
        FehlerSetzen(Stand, Fehlgeschlagen,
                     "Das von Ihnen angeforderte Medium konnte aufgrund eines Fehlers nicht gefunden werden. "
                     "Ein Verarbeitungsfehler ist aufgetreten.");
        return 2;
    }
    std::vector<std::string> Angebot;
    for (std::size_t i = 1; i < Zeilen.size(); ++i)
        Angebot.push_back(CDEinzeilig(Zeilen[i]));
    const std::size_t Zeile = Umgebung.Wählen ? Umgebung.Wählen(Angebot) : 0;
    if (Zeile < 1 || Zeile > Angebot.size()) return 2;
    const std::string_view Gewählt = Angebot[Zeile - 1];
    const auto Anfang = Gewählt.find(' ');
    Stand.Daten.Kategorie = Gewählt.substr(0, Anfang);
    if (Anfang != std::string_view::npos)
        ID = Gewählt.substr(Anfang + 1, Gewählt.find(' ', Anfang + 1) - Anfang - 1);
    return 1;
}

constexpr std::string_view NichtGelesen =
    "Das von Ihnen angeforderte Medium und der damit verbundene Datensatz konnte nicht gelesen werden. Beim "
    "Herstellen der Verbindung ist ein Fehler aufgetreten.";

// A reply that breaks off ahead of its closing "." would be kept as the CD's data for good.
bool VollständigeDatenVerarbeiten(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort) {
    const auto Zeilen = XmcdZeilen(Antwort.substr(0, Antwort.find_last_not_of("\r\n") + 1));
    if (Zeilen.size() < 2 || Zeilen.back() != ".") {
        CDProtokollieren(Stand.Daten, "CDDBLeseResultatVerarbeiten: Die Antwort ist unvollständig");
        FehlerSetzen(Stand, Fehlgeschlagen, NichtGelesen);
        return false;
    }
    const auto SpurenDerCD = Stand.Daten.AnzahlTitel;
    if (!CDDBCDVerarbeiten(Antwort, Stand.Daten, Umgebung.Disc.Speicher.Log)) return false;
    Stand.Daten.AnzahlTitel = std::max(Stand.Daten.AnzahlTitel, SpurenDerCD);
    return true;
}

}  // namespace

std::string_view WinInetFehlerText(Httpfehler Fehler) {
    switch (Fehler) {
        case Httpfehler::Adresse:
            return "Die Adresse des Servers ist ungültig.";
        case Httpfehler::Wirt:
            return "Der Name des Servers ist unbekannt.";
        case Httpfehler::Verbindung:
            return "Die Verbindung kam nicht zustande oder wurde unterbrochen.";
        case Httpfehler::Antwort:
            return "Die Antwort des Servers ist unverständlich.";
        case Httpfehler::Zeit:
            return "Der Server hat nicht rechtzeitig geantwortet.";
        case Httpfehler::Größe:
            return "Die Antwort des Servers ist zu groß.";
        case Httpfehler::Komprimiert:
            return "Die Antwort des Servers ist komprimiert.";
        case Httpfehler::Abgebrochen:
            return "Der Vorgang wurde abgebrochen.";
        case Httpfehler::Keiner:
            break;
    }
    return "Unbekannter Fehler";
}

std::string CDDBAnfrage(CDStand& Stand, const CDDBUmgebung& Umgebung, const std::string& Url,
                        std::string_view Schritt) {
    return Austauschen(Stand, Umgebung, Schritt, {Url, {}, {}});
}

bool CDDBAbfragen(CDStand& Stand, const CDDBUmgebung& Umgebung) {
    CDDaten& Daten = Stand.Daten;
    CDProtokollieren(Daten, "CDDBAbfragen...");
    std::string Antwort;
    if (!Fragen(Stand, Umgebung, "Stelle Verbindung her", Daten.Adresse + Daten.Befehl + Daten.Hallo, Antwort,
                "Das von Ihnen angeforderte Medium konnte nicht gefunden werden. Beim Herstellen der "
                "Verbindung ist ein Fehler aufgetreten.") ||
        !Schritt(Stand, Umgebung, "Verarbeite Resultate"))
        return false;
    std::string ID = Daten.ID;
    // Kept: 2, nothing chosen among several matches, sends the read as well.
    if (CDDBResultatVerarbeiten(Stand, Umgebung, Antwort, ID) == 0) return false;
    Daten.Befehl = "cddb+read+" + std::string(Anfragekategorie(Daten.Kategorie)) + "+" + ProzentKodieren(ID);
    if (!Fragen(Stand, Umgebung, "Lese Daten", Daten.Adresse + Daten.Befehl + Daten.Hallo, Antwort,
                NichtGelesen))
        return false;
    Umgebung.Person.FortschrittZeigen("Verarbeite Daten", 0);
    return CDDBLeseResultatVerarbeiten(Stand, Umgebung, Antwort);
}

int CDDBResultatVerarbeiten(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort,
                            std::string& ID) {
    switch (StatusVon(Antwort)) {
        case 200:
            Umgebung.Person.FortschrittZeigen("Medium gefunden, sende Abfrage", 0);
            if (Antwort.find(" / ") != std::string_view::npos) KategorieLesen(Stand.Daten, Antwort);
            return 1;
        case 202:
            Umgebung.Person.FortschrittZeigen("Medium nicht gefunden, beende Verbindung", 0);
            FehlerSetzen(Stand, OhneErgebnis,
                         "Das von Ihnen angeforderte Medium konnte nicht gefunden werden (202).");
            return 0;
        case 210:
        case 211:
            Umgebung.Person.FortschrittZeigen("Mehrere Medien gefunden, sende Anfage", 0);
            return TrefferWählen(Stand, Umgebung, Antwort, ID);
        default:
            return 0;
    }
}

bool CDDBLeseResultatVerarbeiten(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Antwort) {
    switch (StatusVon(Antwort)) {
        case 210:
            Umgebung.Person.FortschrittZeigen("Lese Daten", 0);
            return VollständigeDatenVerarbeiten(Stand, Umgebung, Antwort);
        case 401:
            Umgebung.Person.FortschrittZeigen("Medium nicht gefunden, beende Verbindung", 0);
            FehlerSetzen(Stand, OhneErgebnis,
                         "Das von Ihnen angeforderte Medium konnte nicht gefunden werden (401).");
            return false;
        default:
            return false;
    }
}

bool CDDBSenden(CDStand& Stand, const CDDBUmgebung& Umgebung, bool Probe) {
    CDDaten& Daten = Stand.Daten;
    const std::string Inhalt = XmcdBytesVonText(Daten.Text + "\r\n");
    const std::string Url = CDDBServeradresse(Umgebung.Werte.CDDBServer) + "/~cddb/submit.cgi";
    CDProtokollieren(Daten, "CDDBSenden...");
    constexpr std::string_view Schritttext = "Sende Daten";
    if (!Schritt(Stand, Umgebung, Schritttext)) return false;
    CDProtokollieren(Daten, "Sende:");
    CDProtokollieren(Daten, Url);
    CDProtokollieren(Daten, Daten.Text);
    const std::string Antwort =
        Austauschen(Stand, Umgebung, Schritttext,
                    {Url,
                     {{"Category", Daten.Kategorie},
                      {"Discid", Daten.ID},
                      {"User-Email", Umgebung.Werte.CDDBEmail},
                      {"Submit-Mode", Probe ? "test" : "submit"},
                      {"X-Cddbd-Note", "Sent by " + Umgebung.Disc.Speicher.Programm},
                      {"Content-Type",
                       std::string("text/plain; charset=") + (IstUtf8(Inhalt) ? "utf-8" : "windows-1252")}},
                     Inhalt});
    CDProtokollieren(Daten, "Resultat:");
    CDProtokollieren(Daten, Antwort);
    if (Stand.CDDBFehler != 0) return false;
    if (Antwort.empty()) {
        FehlerSetzen(Stand, Fehlgeschlagen,
                     "Die Daten der CD konnten nicht gesendet werden. Beim Herstellen der Verbindung ist ein "
                     "Fehler aufgetreten.");
        return false;
    }
    if (StatusVon(Antwort) == 200) return true;
    FehlerSetzen(Stand, OhneErgebnis,
                 "Der Server hat die Daten der CD nicht angenommen: '" +
                     std::string(LinkerTeil(Antwort.substr(0, Antwort.find_first_of("\r\n")), 200)) + "'");
    return false;
}

}  // namespace liedwerk
