#include "plattform/qt/mpriswerte.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QSysInfo>
#include <algorithm>
#include <cmath>
#include <utility>

#include "basis/pfad.h"
#include "basis/steuerzeichen.h"

namespace liedwerk {
namespace {

constexpr qsizetype LängsterText = 1000;
// A path of the system has at most 4096 bytes, each of them up to three characters of an address.
constexpr qsizetype LängsteAdresse = 3 * 4096 + 300;
constexpr double LängsterTitel = 1e7;  // seconds

// True when every "%" begins an encoded byte.
bool KannVerschlüsseltSein(std::string_view Adresse) {
    const auto Hexziffer = [](char Zeichen) {
        return (Zeichen >= '0' && Zeichen <= '9') || (Zeichen >= 'A' && Zeichen <= 'F') ||
               (Zeichen >= 'a' && Zeichen <= 'f');
    };
    for (std::size_t Stelle = Adresse.find('%'); Stelle != std::string_view::npos;
         Stelle = Adresse.find('%', Stelle + 1)) {
        if (Stelle + 2 >= Adresse.size() || !Hexziffer(Adresse[Stelle + 1]) ||
            !Hexziffer(Adresse[Stelle + 2]))
            return false;
    }
    return true;
}

// True for the host of an address whose file lies here: none, or one of this machine's names.
bool IstHier(const QString& Wirt) {
    return Wirt.isEmpty() || Wirt.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 ||
           Wirt.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

// A line end would break out of the one line in which texts are shown, other control characters reach a
// terminal.
bool StörtDieZeile(QChar Zeichen) {
    return Zeichen != u'\t' && IstSteuerzeichen(char32_t{Zeichen.unicode()});
}

QString Anzeigezeile(QString Text) {
    Text.truncate(LängsterText);
    std::replace_if(Text.begin(), Text.end(), StörtDieZeile, u' ');
    return Text.trimmed();
}

}  // namespace

QVariantMap Busverzeichnis(const QVariant& Wert) {
    if (Wert.metaType() == QMetaType::fromType<QDBusArgument>()) {
        const auto Inhalt = Wert.value<QDBusArgument>();
        if (Inhalt.currentSignature() != QStringLiteral("a{sv}")) return {};
        return qdbus_cast<QVariantMap>(Inhalt);
    }
    return Wert.metaType() == QMetaType::fromType<QVariantMap>() ? Wert.toMap() : QVariantMap();
}

std::optional<double> Buszahl(const QVariant& Wert) {
    switch (Wert.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::UChar:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Double: {
            const double Zahl = Wert.toDouble();
            constexpr double Grenze = 9e18;
            if (std::isfinite(Zahl) && std::abs(Zahl) < Grenze) return Zahl;
            return std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

QString Bustext(const QVariant& Wert) {
    QString Text;
    if (Wert.typeId() == QMetaType::QString) Text = Wert.toString();
    if (Wert.typeId() == QMetaType::QStringList) Text = Wert.toStringList().join(QStringLiteral(", "));
    if (Wert.metaType() == QMetaType::fromType<QDBusObjectPath>())
        Text = Wert.value<QDBusObjectPath>().path();
    return Anzeigezeile(std::move(Text));
}

std::vector<std::string> PfadeZurAdresse(const QString& Adresse) {
    if (Adresse.size() > LängsteAdresse) return {};
    QByteArray Bytes = Adresse.toUtf8();
    const bool IstAdresse = Bytes.startsWith("file:");
    if (IstAdresse) {
        Bytes.remove(0, 5);
        if (Bytes.startsWith("//")) {
            const qsizetype Wurzel = Bytes.indexOf('/', 2);
            if (Wurzel < 0 || !IstHier(QString::fromUtf8(Bytes.mid(2, Wurzel - 2)))) return {};
            Bytes.remove(0, Wurzel);
        }
    }
    if (!Bytes.startsWith('/') || Bytes.contains('\0')) return {};
    const std::string Wörtlich = Bytes.toStdString();
    const std::string Entziffert = QByteArray::fromPercentEncoding(Bytes).toStdString();
    if (!IstAdresse || Wörtlich == Entziffert || !KannVerschlüsseltSein(Wörtlich)) return {Wörtlich};
    if (Entziffert.find('\0') != std::string::npos) return {Wörtlich};
    // An encoded address holds no blank and nothing but ASCII.
    const bool Verschlüsselt = std::all_of(Wörtlich.begin(), Wörtlich.end(),
                                           [](char Zeichen) { return Zeichen > ' ' && Zeichen <= '~'; });
    return Verschlüsselt ? std::vector{Entziffert, Wörtlich} : std::vector{Wörtlich, Entziffert};
}

Mpristitel TitelLesen(const QVariantMap& Metadaten) {
    Mpristitel Ergebnis;
    Ergebnis.Kennung = Bustext(Metadaten.value(QStringLiteral("mpris:trackid")));
    // Addresses are longer than texts, and a cut one would be another file: too long a one names none.
    const QString Adresse = Metadaten.value(QStringLiteral("xesam:url")).toString();
    Ergebnis.Dateien = PfadeZurAdresse(Adresse);
    Ergebnis.Adresse = Adresse.left(LängsteAdresse);
    if (const auto Länge = Buszahl(Metadaten.value(QStringLiteral("mpris:length"))))
        Ergebnis.Länge = static_cast<std::int64_t>(std::clamp(*Länge / 1e6, -1.0, LängsterTitel));
    const QString Interpret = Bustext(Metadaten.value(QStringLiteral("xesam:artist")));
    QString Titel = Bustext(Metadaten.value(QStringLiteral("xesam:title")));
    if (Titel.isEmpty() && !Ergebnis.Dateien.empty())
        Titel = Anzeigezeile(
            QString::fromStdString(std::string(DateiOhneEndung(DateinameVon(Ergebnis.Dateien.front())))));
    if (!Interpret.isEmpty() && !Titel.isEmpty()) Titel = Interpret + QStringLiteral(" - ") + Titel;
    Ergebnis.Titel = (Titel.isEmpty() ? Interpret : Titel).toStdString();
    return Ergebnis;
}

}  // namespace liedwerk
