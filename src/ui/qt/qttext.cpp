#include "ui/qt/qttext.h"

#include <QFile>

#include "basis/uri.h"

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
        if (auto Pfad = PfadAusUri(Zeile.trimmed().toStdString())) Pfade.push_back(std::move(*Pfad));
    }
    return Pfade;
}

}  // namespace liedwerk
