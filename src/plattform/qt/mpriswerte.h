// Reading what players tell: values of any type from programs that nobody has checked.
#pragma once

#include <QVariantMap>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace liedwerk {

// A dictionary of names and values in a value; empty for anything else.
QVariantMap Busverzeichnis(const QVariant& Wert);
// A number of any kind; nothing when it is none or lies beyond 64 bits.
std::optional<double> Buszahl(const QVariant& Wert);
// A text, or the texts of a list joined by ", "; at most 1000 characters, none of them for control but TAB.
QString Bustext(const QVariant& Wert);

// What the metadata of a track say.
struct Mpristitel {
    QString Kennung;          // mpris:trackid, an object path or a text
    QString Adresse;          // xesam:url
    std::string Titel;        // "artist - title"; one of them, or the file's name, when that is all
    std::int64_t Länge = -1;  // seconds
    std::vector<std::string> Dateien;
};
Mpristitel TitelLesen(const QVariantMap& Metadaten);

// The paths that an address of a local file may mean. Players encode them, leave them as they are, or name
// the bare path; the likeliest reading comes first. None for a file of another machine, or where the address
// is longer than any path.
std::vector<std::string> PfadeZurAdresse(const QString& Adresse);

}  // namespace liedwerk
