// CDDBStart: from the disc in a drive to its data, or from its data to the server.
#include <algorithm>

#include "basis/text.h"
#include "basis/uri.h"
#include "cd/cddb.h"
#include "cd/xmcd.h"

namespace liedwerk {
namespace {

constexpr std::int32_t Abgelehnt = 1;
constexpr std::string_view ÄndernHinweis = "\nBitte ändern Sie die Adresse in den 'Optionen'.";

void Ablehnen(CDStand& Stand, std::string_view Text) {
    Stand.CDDBFehler = Abgelehnt;
    Stand.CDDBFehlerText = Text;
}

// The words of the record: what a person enters or a server gives, without what the disc itself tells.
void WorteÜbernehmen(const CDDaten& Von, CDDaten& Nach) {
    Nach.Album = Von.Album;
    Nach.Interpret = Von.Interpret;
    Nach.Kategorie = Von.Kategorie;
    Nach.ID3Genre = Von.ID3Genre;
    Nach.Jahr = Von.Jahr;
    Nach.Erweitert = Von.Erweitert;
    Nach.AnzahlTitel = Von.AnzahlTitel;
    for (std::size_t i = 0; i < Nach.Titel.size(); ++i)
        Nach.Titel[i].Titel = Von.Titel[i].Titel;
}

// Why the record cannot go to a server; empty when it can.
std::string SendehindernisVon(const CDDaten& Daten, const clsCcd& Disc) {
    if (!CDIDGültig(Daten.ID)) return "Die CD hat keine gültige Kennung und kann nicht gesendet werden.";
    if (std::ranges::find(CDDBKategorien, Daten.Kategorie) == CDDBKategorien.end())
        return "Bitte wählen Sie eine Kategorie aus der Liste, bevor Sie die Daten der CD senden.";
    const auto Anzahl = static_cast<std::size_t>(std::max<std::int16_t>(Daten.AnzahlTitel, 0));
    const auto Letzter = Daten.Titel.begin() + static_cast<std::ptrdiff_t>(std::min(Anzahl, CDHöchsteTitel));
    const bool Vollständig = Daten.AnzahlTitel == Disc.TrackCount && !Kürzen(Daten.Album).empty() &&
                             !Kürzen(Daten.Interpret).empty() &&
                             std::none_of(Daten.Titel.begin(), Letzter, [](const CDTitel& Einer) {
                                 return !Einer.Datenspur && Kürzen(Einer.Titel).empty();
                             });
    if (!Vollständig || Daten.Album == CDStandardAlbum || Daten.Interpret == CDStandardInterpret)
        return "Bitte geben Sie Album, Interpret und alle Titel ein, bevor Sie die Daten der CD senden.";
    return {};
}

// The address's parts "&hello=anna+example.org+Liedwerk+1.00&proto=5". Programm is name and version.
std::string HalloVon(std::string_view Email, std::string_view Programm) {
    const auto Trenner = Email.find('@');
    std::string Hallo = "&hello=" + ProzentKodieren(Email.substr(0, Trenner)) + "+" +
                        ProzentKodieren(Email.substr(Trenner + 1));
    for (const std::string& Teil : Teilen(Programm, " "))
        Hallo += "+" + ProzentKodieren(Teil);
    return Hallo + "&proto=5";
}

// Speaks to the server; true when the record holds what it gave.
bool Verbinden(CDStand& Stand, const CDDBUmgebung& Umgebung, const clsCcd& Disc, const CDDBWunsch& Wunsch) {
    CDDaten& Daten = Stand.Daten;
    Umgebung.Person.NetzfortschrittStarten("Greife auf Internet-CD-Datenbank zu");
    Umgebung.Person.FortschrittZeigen("Starte Verbindung", 0);
    Daten.Adresse = CDDBServeradresse(Umgebung.Werte.CDDBServer) + "/~cddb/cddb.cgi/?cmd=";
    Daten.Hallo = HalloVon(Umgebung.Werte.CDDBEmail, Umgebung.Disc.Speicher.Programm);
    bool VomServer = false;
    bool Gesendet = false;
    if (Wunsch.Senden) {
        Daten.Befehl = "cddb write " + Daten.Kategorie + " " + Daten.ID;
        Daten.Text = CDDBTextErstellen(Daten, Umgebung.Disc.Speicher.Programm);
        Gesendet = CDDBSenden(Stand, Umgebung, Wunsch.Probe);
    } else {
        Daten.Befehl = Disc.QueryString();
        VomServer = CDDBAbfragen(Stand, Umgebung);
    }
    Umgebung.Person.FortschrittZeigen("Verbindung beendet", 0);
    Umgebung.Person.FortschrittSchließen();
    if (Gesendet)
        Umgebung.Person.Melden(Symbol::Information,
                               Wunsch.Probe ? "Der Server hat die Daten der CD zur Probe angenommen. "
                                              "Gespeichert wurden sie dort nicht."
                                            : "Der Server hat die Daten der CD angenommen.");
    return VomServer;
}

void FehlerZeigen(CDStand& Stand, Oberfläche& Person) {
    if (Stand.CDDBFehler == 0) return;
    CDProtokollieren(Stand.Daten, "CDDBStart: Fehler:");
    CDProtokollieren(Stand.Daten,
                     Stand.CDDBFehlerText + " (Fehler " + std::to_string(Stand.CDDBFehler) + ")");
    if (Stand.CDDBFehler == Abgelehnt) return Person.Melden(Symbol::Information, Stand.CDDBFehlerText);
    Person.Melden(Symbol::Ausrufezeichen,
                  "Beim Kommunizieren mit der Internet-Datenbank ist ein Fehler aufgetreten:\n" +
                      Stand.CDDBFehlerText +
                      "\nBitte prüfen Sie, ob eine Internetverbindung besteht und diese ordnungsgemäß "
                      "eingerichtet wurde.");
}

// Why the server is not asked; empty when it can be.
std::string HindernisVon(const CDStand& Stand, const CDDBUmgebung& Umgebung, const clsCcd& Disc,
                         const CDDBWunsch& Wunsch) {
    if (Wunsch.Eingaben != nullptr && Wunsch.Eingaben->ID != Stand.Daten.ID)
        return std::string("Im Laufwerk liegt inzwischen eine andere CD. Es wurde nichts ") +
               (Wunsch.Senden ? "gesendet" : "abgefragt") +
               ", Ihre Eingaben bleiben erhalten.\nBitte legen Sie die vorige CD wieder ein.";
    if (const std::string Grund = CDDBEmailPrüfen(Umgebung.Werte.CDDBEmail); !Grund.empty()) return Grund;
    if (Kürzen(Umgebung.Werte.CDDBServer).empty())
        return "Sie haben keinen CD-Datenbank-Server angegeben.\nBitte ändern Sie diesen in den 'Optionen'.";
    return Wunsch.Senden ? SendehindernisVon(Stand.Daten, Disc) : std::string();
}

}  // namespace

std::string CDDBEmailPrüfen(std::string_view Adresse) {
    static const std::string Platzhalter = Einstellungen().CDDBEmail;
    const auto Fehler = [&](std::string_view Grund) {
        return "Die von Ihnen angegebene EMail-Adresse '" + std::string(Adresse) + "' ist ungültig" +
               std::string(Grund) + std::string(ÄndernHinweis);
    };
    const auto Klammeraffe = Adresse.find('@');
    const auto Punkt = Adresse.find('.');
    const auto Leerzeichen = Adresse.find_first_of(" \t\r\n");
    if (Kürzen(Adresse).empty() || Adresse == Platzhalter || Klammeraffe == std::string_view::npos ||
        Punkt == std::string_view::npos || Adresse.ends_with('@') || Adresse.ends_with('.') ||
        // Kept: a blank behind the first character passes.
        (Leerzeichen != std::string_view::npos &&
         (Leerzeichen != 1 || Adresse.find_first_of(" \t\r\n", 2) != std::string_view::npos)) ||
        Punkt < 2 || Klammeraffe < 1)
        return Fehler(" oder wurde nicht durch eine persönliche Adresse ersetzt.");
    if (Adresse.find('@', Klammeraffe + 1) != std::string_view::npos)
        return Fehler(", da diese nicht verarbeitet werden konnte.");
    return {};
}

std::string CDDBServeradresse(std::string_view Server) {
    Server = Kürzen(Server);
    // Whoever pastes an address means its host.
    constexpr std::string_view Schema = "http://";
    if (BeginntMitOhneGroß(Server, Schema)) Server.remove_prefix(Schema.size());
    while (Server.ends_with('/'))
        Server.remove_suffix(1);
    std::string Adresse(Schema);
    for (const char Byte : Server)
        Adresse += Byte == ':' || Byte == '[' || Byte == ']' ? std::string(1, Byte)
                                                             : ProzentKodieren(std::string_view(&Byte, 1));
    return Adresse;
}

CDDBHerkunft CDDBStart(CDStand& Stand, const CDDBUmgebung& Umgebung, std::string_view Laufwerk,
                       const CDDBWunsch& Wunsch) {
    CDDaten& Daten = Stand.Daten;
    clsCcd Disc;
    const CDBereitung Bereitung =
        CDDBDatenBereiten(Stand, Umgebung.Disc, Laufwerk, Umgebung.Werte.CDDBServer, Disc);
    if (Bereitung == CDBereitung::Gescheitert) return CDDBHerkunft::Keine;
    CDDBHerkunft Herkunft =
        Bereitung == CDBereitung::Unbekannt ? CDDBHerkunft::Standard : CDDBHerkunft::Speicher;
    if (Wunsch.Eingaben != nullptr && Wunsch.Eingaben->ID == Daten.ID) {
        WorteÜbernehmen(*Wunsch.Eingaben, Daten);
        Herkunft = CDDBHerkunft::Eingaben;
    }
    const bool Fragt =
        Wunsch.Abfragen || (!Wunsch.NurLesen && Herkunft == CDDBHerkunft::Standard && !Wunsch.Senden);
    if (Fragt || Wunsch.Senden) {
        const std::string Hindernis = HindernisVon(Stand, Umgebung, Disc, Wunsch);
        if (!Hindernis.empty()) {
            Ablehnen(Stand, Hindernis);
        } else if (Verbinden(Stand, Umgebung, Disc, Wunsch)) {
            Herkunft = CDDBHerkunft::Server;
        }
        FehlerZeigen(Stand, Umgebung.Person);
    }
    if (Wunsch.Speichern && Herkunft == CDDBHerkunft::Server) {
        const CDDaten Kopie = Daten;
        CDDBCDSpeichern(Stand, Umgebung.Disc.Speicher, Daten.ID, Kopie);
    }
    CDProtokollieren(Daten, "CDDBStart: Beendet");
    return Herkunft;
}

}  // namespace liedwerk
