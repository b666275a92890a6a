#include "ui/qt/qttext.h"

#include <QFile>

namespace liedwerk {

QString QtText(std::string_view Text) {
    return QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size()));
}

std::string Utf8Text(const QString& Text) {
    return Text.toStdString();
}

std::string PfadAusQt(const QString& Pfad) {
    return QFile::encodeName(Pfad).toStdString();
}

QByteArray UriListe(const std::vector<std::string>& Pfade) {
    QByteArray Liste;
    for (const std::string& Pfad : Pfade) {
        const auto Bytes = QByteArray::fromRawData(Pfad.data(), static_cast<qsizetype>(Pfad.size()));
        Liste += "file://" + Bytes.toPercentEncoding("/") + "\r\n";
    }
    return Liste;
}

std::vector<std::string> PfadeAusUriListe(const QByteArray& Liste) {
    std::vector<std::string> Pfade;
    for (const QByteArray& Zeile : Liste.split('\n')) {
        QByteArray Adresse = Zeile.trimmed();
        if (!Adresse.startsWith("file:")) continue;
        Adresse.remove(0, 5);
        if (Adresse.startsWith("//")) Adresse.remove(0, Adresse.indexOf('/', 2));  // empty or own host name
        const QByteArray Pfad = QByteArray::fromPercentEncoding(Adresse);
        if (Pfad.startsWith('/') && !Pfad.contains('\0')) Pfade.push_back(Pfad.toStdString());
    }
    return Pfade;
}

}  // namespace liedwerk
