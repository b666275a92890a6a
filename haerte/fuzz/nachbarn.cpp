// What other programs of the desktop hand over: the title that a player plays, lists of addresses that are
// dragged or pasted; and the stored password.
#include <QDBusObjectPath>
#include <QVariantMap>

#include "abspielen/titelerkennung.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/uri.h"
#include "fuzz/ziel.h"
#include "plattform/qt/mpriswerte.h"
#include "suche/feldwert.h"
#include "suche/suchmaschine.h"
#include "ui/qt/kennwort.h"
#include "ui/qt/qttext.h"

namespace liedwerk::fuzz {
namespace {

std::string Feldtext(const Katalog& Index, Satznummer Nummer, std::string_view Feld) {
    std::string Wert;
    Feldtyp Typ{};
    FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, false, Wert, Typ);
    return Wert;
}

// The records that a title fits, asked one by one; the sieves of the search may lose none of them.
std::vector<Satznummer> EinzelnGefragt(const Katalog& Index, std::string_view Titel) {
    const std::size_t Trenner = Titel.find(" - ");
    std::string_view Interpret, Stück;
    if (Trenner != std::string_view::npos) {
        Interpret = Kürzen(Titel.substr(0, Trenner));
        Stück = Kürzen(Titel.substr(Trenner + 3));
        if (Interpret.empty() && Stück.empty()) return {};
    }
    std::vector<Satznummer> NachTags, NachNamen;
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        const auto Passt = [&](std::string_view Titelfeld, std::string_view Interpretfeld) {
            return AlsWort(Stück, Feldtext(Index, Nummer, Titelfeld)) &&
                   AlsWort(Interpret, Feldtext(Index, Nummer, Interpretfeld));
        };
        if (Passt("Titel", "Interpret") || Passt("Titel-ID3v2", "Interpret-ID3v2"))
            NachTags.push_back(Nummer);
        const std::string Name = Feldtext(Index, Nummer, "Dateiname");
        const std::string_view Rumpf = DateiOhneEndung(Name);
        if (liedwerk::Gleich(Titel, Rumpf) || (AlsWort(Stück, Rumpf) && AlsWort(Interpret, Rumpf)))
            NachNamen.push_back(Nummer);
    }
    return NachTags.empty() ? NachNamen : NachTags;
}

void TitelsuchePrüfen(std::string_view Titel, std::string_view Interpret, std::string_view Stück,
                      std::string_view Name) {
    Katalog Index;
    for (const std::string_view Anderer : {Stück, Interpret, std::string_view("Montag")}) {
        Datensatz Satz;
        Satz.HatId3v1 = Satz.HatId3v2 = TagVorhanden;
        Satz.Interpret = Interpret;
        Satz.Titel = Anderer;
        Satz.V2Interpret = Anderer;
        Satz.V2Titel = Kleinbuchstaben(Stück);
        SatzAnhängen(Index, "/m/" + std::string(Name.substr(0, Name.find('\0'))) + ".mp3", Satz);
        SatzAnhängen(Index, "C:\\m\\" + std::string(Anderer.substr(0, Anderer.find('\0'))) + ".mp3", Satz);
    }
    for (const std::string& Gesucht :
         {std::string(Titel), std::string(Interpret) + " - " + std::string(Stück),
          Großbuchstaben(Name) + " - " + std::string(Titel)})
        Fordern(SätzeZumTitel(Index, Gesucht) == EinzelnGefragt(Index, Gesucht),
                "Die Suche nach einem Titel findet, was einzeln gefragt passt");
    // By the paths that a player names, the likeliest first, and record by record.
    const std::vector<std::string> Dateien{"/m/" + std::string(Titel), Großbuchstaben(Index.Sätze.Pfad(2)),
                                           Index.Sätze.Pfad(1)};
    Titelsuche Suche(Titel, Dateien);
    while (!Suche.Weitersuchen(Index, 1)) {
    }
    std::vector<Satznummer> Erwartet;
    for (const std::string& Datei : Dateien) {
        for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl() && Erwartet.size() < 100; ++Nummer) {
            if (PfadeGleich(Index.Sätze.Pfad(Nummer), Datei)) Erwartet.push_back(Nummer);
        }
        if (!Erwartet.empty()) break;
    }
    Fordern(Suche.Gefundene() == Erwartet, "Eine Datei wird an ihrem Pfad erkannt");
}

// What a player may send in place of a number or a text.
std::vector<QVariant> Buswerte(const QString& Text, qlonglong Zahl) {
    return {Text,
            Text.split(QLatin1Char('\t')),
            QVariant::fromValue(QDBusObjectPath(Text)),
            Zahl,
            static_cast<qulonglong>(Zahl),
            static_cast<int>(Zahl),
            static_cast<uint>(Zahl),
            QVariant::fromValue(static_cast<short>(Zahl)),
            QVariant::fromValue(static_cast<uchar>(Zahl)),
            static_cast<double>(Zahl) * 1e300,
            QVariantMap{{Text, Zahl}},
            QVariant()};
}

}  // namespace

void SpielerPrüfen(std::string_view Eingabe) {
    const auto Teile = Stücke(Eingabe, 5);
    const QVariantMap Metadaten{{QStringLiteral("xesam:url"), QtText(Teile[0])},
                                {QStringLiteral("xesam:title"), QtText(Teile[1])},
                                {QStringLiteral("xesam:artist"), QtText(Teile[2]).split(QLatin1Char('\t'))},
                                {QStringLiteral("mpris:trackid"), QtText(Teile[3])},
                                {QStringLiteral("mpris:length"), QtText(Teile[3]).toLongLong()}};
    for (const QVariant& Wert : Buswerte(QtText(Teile[1]), QtText(Teile[3]).toLongLong())) {
        Fordern(Bustext(Wert).size() <= 1000, "Ein Text vom Bus ist begrenzt");
        Buszahl(Wert);
        Busverzeichnis(Wert);
    }
    const Mpristitel Titel = TitelLesen(Metadaten);
    for (const std::string& Pfad : Titel.Dateien)
        Fordern(Pfad.starts_with('/') && Pfad.find('\0') == std::string::npos,
                "Was ein Spieler nennt, ist ein voller Pfad");
    Fordern(Titel.Titel.find('\n') == std::string::npos, "Ein Titel ist eine Zeile");
    Fordern(Titel.Länge >= -1, "Eine Länge ist nicht negativ");
    TitelsuchePrüfen(Titel.Titel, Teile[2], Teile[1], Teile[4]);
}

void AblagePrüfen(std::string_view Eingabe) {
    const auto Gelesen = PfadeAusUriListe(QByteArray(Eingabe.data(), std::ssize(Eingabe)));
    std::vector<std::string> Pfade;
    for (const std::string& Pfad : Gelesen) {
        Fordern(!Pfad.empty() && Pfad.find('\0') == std::string::npos, "Was abgelegt wird, ist ein Pfad");
        if (IstPosixPfad(Pfad)) Pfade.push_back(Pfad);
    }
    Fordern(PfadeAusUriListe(UriListe(Pfade)) == Pfade, "Eine Liste von Adressen kommt wieder");
    // Every name of a file but "/c:", which means a drive.
    const std::string Name = "/mm" + std::string(Eingabe.substr(0, Eingabe.find('\0')));
    Fordern(PfadeAusUriListe(UriListe({Name})) == std::vector{Name}, "Jeder Dateiname kommt wieder");
    Fordern(PfadeZurAdresse(QString::fromUtf8(UriListe({Name}).trimmed())).front() == Name,
            "Eine verschlüsselte Adresse ist der Pfad");
    KennwortLesbar(Eingabe);
}

}  // namespace liedwerk::fuzz
