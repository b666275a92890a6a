#include "haerte/spieler/luegen.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace liedwerk::haerte {
namespace {

QVariantMap Titelangaben(const QVariantMap& Anders = {}) {
    QVariantMap Werte{{u"xesam:title"_s, u"Morgen"_s},
                      {u"xesam:artist"_s, QStringList{u"Anna"_s}},
                      {u"mpris:trackid"_s, QVariant::fromValue(QDBusObjectPath(u"/titel/1"_s))},
                      {u"mpris:length"_s, qlonglong{200'000'000}}};
    for (auto Eine = Anders.begin(); Eine != Anders.end(); ++Eine)
        Werte[Eine.key()] = Eine.value();
    return Werte;
}

// A player that plays, told truly but for what stands in Anders.
QVariantMap Spielend(const QVariantMap& Anders = {}) {
    QVariantMap Werte{{u"PlaybackStatus"_s, u"Playing"_s},
                      {u"Volume"_s, 0.5},
                      {u"Position"_s, qlonglong{5'000'000}},
                      {u"Rate"_s, 1.0},
                      {u"CanSeek"_s, true},
                      {u"CanGoNext"_s, true},
                      {u"Metadata"_s, Titelangaben()}};
    for (auto Eine = Anders.begin(); Eine != Anders.end(); ++Eine)
        Werte[Eine.key()] = Eine.value();
    return Werte;
}

QVariant Verschachtelt(QVariant Wert, int Tiefe) {
    while (Tiefe-- > 0)
        Wert = QVariant::fromValue(QDBusVariant(Wert));
    return Wert;
}

struct Unwert {
    QString Name;
    QVariant Wert;
};

// Values that a number, a text or a list is not.
std::vector<Unwert> Unwerte() {
    return {{u"negativ"_s, qlonglong{-5'000'000}},
            {u"kleinste Zahl"_s, std::numeric_limits<qlonglong>::min()},
            {u"größte Zahl"_s, std::numeric_limits<qlonglong>::max()},
            {u"größte Zahl ohne Vorzeichen"_s, std::numeric_limits<qulonglong>::max()},
            {u"keine Zahl"_s, std::numeric_limits<double>::quiet_NaN()},
            {u"unendlich"_s, -std::numeric_limits<double>::infinity()},
            {u"1e300"_s, 1e300},
            {u"Text"_s, u"bald"_s},
            {u"Wahrheitswert"_s, true},
            {u"Liste"_s, QStringList{u"1"_s, u"2"_s}},
            {u"Verzeichnis"_s, QVariantMap{{u"x"_s, 1}}},
            {u"verschachtelt"_s, Verschachtelt(1, 30)}};
}

void ZahlenAnhängen(std::vector<Lüge>& Alle) {
    for (const QString& Feld : {u"Position"_s, u"Rate"_s, u"Volume"_s}) {
        for (const Unwert& Einer : Unwerte())
            Alle.push_back({Feld + u": "_s + Einer.Name, Spielend({{Feld, Einer.Wert}})});
    }
    for (const Unwert& Einer : Unwerte())
        Alle.push_back({u"Länge: "_s + Einer.Name,
                        Spielend({{u"Metadata"_s, Titelangaben({{u"mpris:length"_s, Einer.Wert}})}})});
}

// Status and metadata of another kind: what is played is not told then, and nothing can be counted.
void ArtenAnhängen(std::vector<Lüge>& Alle) {
    for (const QVariant& Wert :
         {QVariant(u"Tanzt"_s), QVariant(u""_s), QVariant(7), QVariant(QStringList{u"Playing"_s}),
          QVariant(QString(10 << 20, u'P')), Verschachtelt(u"Playing"_s, 5)}) {
        Lüge Eine{u"Zustand von anderer Art, "_s + QString::number(Alle.size()),
                  Spielend({{u"PlaybackStatus"_s, Wert}})};
        // A list of one text reads as that text.
        Eine.Gezählt = Wert.typeId() == QMetaType::QStringList ? 1 : 0;
        Alle.push_back(Eine);
    }
    for (const QVariant& Wert :
         {QVariant(u"x"_s), QVariant(QStringList{u"x"_s}), QVariant(7.5), QVariant(QVariantMap()),
          Verschachtelt(Titelangaben(), 20), QVariant(QVariantList{1, u"x"_s})}) {
        Lüge Eine{u"Metadata von anderer Art, "_s + QString::number(Alle.size()),
                  Spielend({{u"Metadata"_s, Wert}})};
        Eine.Gezählt = 0;
        Alle.push_back(Eine);
    }
    QVariantMap Ohne = Spielend();
    Ohne.remove(u"Metadata"_s);
    Alle.push_back({u"Metadata fehlt"_s, Ohne});
    Alle.back().Gezählt = 0;
}

void TexteAnhängen(std::vector<Lüge>& Alle) {
    const QString Riesig(10 << 20, u'x');
    QStringList Viele;
    for (int i = 0; i < 100'000; ++i)
        Viele.push_back(u"Wer "_s + QString::number(i));
    const QVariant Pfad = QVariant::fromValue(QDBusObjectPath(u"/"_s + QString(1 << 20, u'x')));
    for (const auto& [Name, Feld, Wert, Gezählt] :
         {std::tuple{u"Titel von 10 MB"_s, u"xesam:title"_s, QVariant(Riesig), 0},
          {u"Titel mit Steuerzeichen"_s, u"xesam:title"_s, QVariant(u"\x1b]0;x\x07\r\n\x9b\u2028\u202e<b>"_s),
           0},
          {u"Interpret von 100.000 Namen"_s, u"xesam:artist"_s, QVariant(Viele), 0},
          {u"Kennung ist kein Pfad"_s, u"mpris:trackid"_s, QVariant(u"kein Pfad//\xe4"_s), 1},
          {u"Kennung von 10 MB"_s, u"mpris:trackid"_s, QVariant(Riesig), 1},
          {u"Kennung, Pfad von 1 MB"_s, u"mpris:trackid"_s, Pfad, 1},
          {u"Kennung ist eine Zahl"_s, u"mpris:trackid"_s, QVariant(7), 1},
          {u"Adresse von 10 MB"_s, u"xesam:url"_s, QVariant(u"file:///"_s + Riesig), 1},
          {u"Adresse ist eine Zahl"_s, u"xesam:url"_s, QVariant(7), 1}}) {
        Lüge Eine{Name, Spielend({{u"Metadata"_s, Titelangaben({{Feld, Wert}})}})};
        Eine.Gezählt = Gezählt;
        Alle.push_back(Eine);
    }
}

// Addresses around "/m/anders.mp3", the path of a record that has nothing of the title.
void AdressenAnhängen(std::vector<Lüge>& Alle) {
    for (const auto& [Adresse, NachPfad] : {std::pair{u"file:///m/anders.mp3"_s, true},
                                            {u"file:///m/%61nders.mp3"_s, true},
                                            {u"/m/anders.mp3"_s, true},
                                            {u"file://localhost/m/anders.mp3"_s, true},
                                            {u"file://anderer.rechner/m/anders.mp3"_s, false},
                                            {u"http://x/m/anders.mp3"_s, false},
                                            {u"m/anders.mp3"_s, false},
                                            {u"file:m/anders.mp3"_s, false},
                                            {u"file:///x/../m/anders.mp3"_s, false},
                                            {u"file:///m//anders.mp3"_s, false},
                                            {u"file:///m/anders.mp3%00.txt"_s, false},
                                            {u"file:///m/%6"_s, false},
                                            {u"file:///m/%zz%"_s, false},
                                            {u"file:///nirgends/x.mp3"_s, false},
                                            {u"file://"_s, false},
                                            {u""_s, false}}) {
        Lüge Eine{u"Adresse \""_s + Adresse + u'"',
                  Spielend({{u"Metadata"_s, Titelangaben({{u"xesam:url"_s, Adresse}})}})};
        Eine.NachPfad = NachPfad;
        Alle.push_back(Eine);
    }
}

void AntwortenAnhängen(std::vector<Lüge>& Alle) {
    for (const auto& [Name, Wie] : {std::pair{u"antwortet nie"_s, Antwortart::Keine},
                                    {u"antwortet mit Fehlern"_s, Antwortart::Fehler},
                                    {u"antwortet spät mit Fehlern"_s, Antwortart::SpäterFehler},
                                    {u"antwortet zu spät"_s, Antwortart::ZuSpät},
                                    {u"leere Antworten"_s, Antwortart::Leer},
                                    {u"Text als Antwort"_s, Antwortart::Text},
                                    {u"Zahl als Antwort"_s, Antwortart::Zahl},
                                    {u"Liste als Antwort"_s, Antwortart::Liste}}) {
        Lüge Eine{Name, Spielend(), Wie};
        Eine.Gezählt = 0;
        Alle.push_back(Eine);
    }
    Lüge Weigerung{u"kann alles und verweigert alles"_s, Spielend()};
    Weigerung.Verweigert = true;
    Alle.push_back(Weigerung);
}

void TreibenAnhängen(std::vector<Lüge>& Alle) {
    for (const auto& [Name, Was, Gezählt] :
         {std::tuple{u"wechselt den Titel 5-mal in der Sekunde"_s, Treiben::Wechsel, 0},
          {u"hält und spielt 10-mal in der Sekunde"_s, Treiben::Flackern, 0},
          {u"springt 5-mal in der Sekunde an den Anfang"_s, Treiben::Zurück, 0},
          {u"10.000 Änderungen in der Sekunde"_s, Treiben::Sturm, 1},
          {u"10.000 Änderungen von 2 KiB in der Sekunde"_s, Treiben::GroßerSturm, 1},
          {u"10.000 fremde Änderungen in der Sekunde"_s, Treiben::FremderSturm, 1},
          {u"10.000 Sprünge in der Sekunde"_s, Treiben::Sprungsturm, 1},
          {u"10.000 leere Signale in der Sekunde"_s, Treiben::Unsinnssturm, 1},
          {u"Name kommt und geht 20-mal in der Sekunde"_s, Treiben::Namenssturm, 0},
          {u"Name wechselt den Besitzer 20-mal in der Sekunde"_s, Treiben::Besitzer, 0},
          {u"300 Spieler seiner Art"_s, Treiben::Viele, 1}}) {
        Lüge Eine{Name, Spielend(), Antwortart::Werte, Was};
        Eine.Gezählt = Gezählt;
        Alle.push_back(Eine);
    }
}

}  // namespace

std::vector<Lüge> AlleLügen() {
    std::vector<Lüge> Alle{{u"ehrlich"_s, Spielend()}};
    ZahlenAnhängen(Alle);
    ArtenAnhängen(Alle);
    TexteAnhängen(Alle);
    AdressenAnhängen(Alle);
    AntwortenAnhängen(Alle);
    TreibenAnhängen(Alle);
    return Alle;
}

}  // namespace liedwerk::haerte
