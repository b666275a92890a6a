// Text and paths between the core (UTF-8 in std::string, paths as bytes) and Qt (QString).
#pragma once

#include <QByteArray>
#include <QMimeData>
#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// For showing only: bytes that are no UTF-8 become replacement characters and do not come back.
QString QtText(std::string_view Text);
std::string Utf8Text(const QString& Text);

// The bytes of a path that a file dialog or the person has given.
std::string PfadAusQt(const QString& Pfad);

// A "text/uri-list" of local files and back. Both work on bytes, so that every name survives; what is no
// local file is left out when reading.
QByteArray UriListe(const std::vector<std::string>& Pfade);
std::vector<std::string> PfadeAusUriListe(const QByteArray& Liste);

}  // namespace liedwerk
