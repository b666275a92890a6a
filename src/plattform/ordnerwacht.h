// The port to folders that are watched: it tells that files in them came, went or changed.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

struct Wachtordner {
    std::string Pfad;
    bool Unterordner = false;
    bool operator==(const Wachtordner&) const = default;
};

// What has happened since the last message.
struct Wachtmeldung {
    std::vector<std::string> Pfade;  // files, each once
    bool Ungenau = false;            // more has happened than Pfade tells
    bool Unvollständig = false;      // the system lets no more folders be watched, or none any more
};

struct Wachtauftrag {
    std::vector<Wachtordner> Ordner;
    // Which names of files are of interest. Asked in a thread of the watch, perhaps once more after Beenden.
    std::function<bool(std::string_view Name)> Gesucht;
    // Takes a message in that thread (in that of Beginnen when there is no other to be had); not called any
    // more once Beenden has returned.
    std::function<void(Wachtmeldung Meldung)> Melden;
};

class Ordnerwacht {
  public:
    virtual ~Ordnerwacht() = default;
    // Watches these folders, in place of those before. Returns at once. What is not there, and what lies on
    // other machines or on discs, is left out. A message comes when it has been quiet for a while.
    virtual void Beginnen(Wachtauftrag Auftrag) = 0;
    virtual void Beenden() = 0;
};

}  // namespace liedwerk
