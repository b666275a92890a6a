// One writer under disturbance: what it begins with, what it makes undisturbed, and the judgement of each
// disturbed run and of the start after it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "haerte/stoerung/bericht.h"
#include "haerte/stoerung/schreiber.h"

namespace liedwerk::haerte {

class Prüfung {
  public:
    // Runs the writer undisturbed. Throws when that fails or a second time gives other files.
    Prüfung(const Orte& Wo, const Schreiber& Wer, Bericht& Wohin);
    // Every call in turn, until the run goes through, for every kind of fault; Alle false: a few kinds.
    void JederRuf(bool Alle);
    // One kill at a random time.
    void ZufälligTöten(std::uint64_t Saat);
    // Undisturbed: the order of the calls, the sound, and that a second run changes nothing.
    void Ungestörtes() const;
    // Every file that is rewritten keeps mode, owner, group, extended attributes, access list and the link
    // that leads to it; a media file its second name. eigenschaften.cpp
    void Eigenschaften();
    // Pipes, folders, links and other users' files under the temporary names.
    void Fremdes();
    // One run with the world on a file system that has only so many parts of 36 of the room that the writer
    // needs. Füllen leaves so many bytes free; below 0: all.
    void BeiVollerPlatte(int Stufe, const std::function<void(std::int64_t Bytes)>& Füllen);

  private:
    Störung Grundstörung() const;
    Urteilsgrund Grund() const { return {Vorher, Nachher, Wer.Nebensachen, Zwischen, Wer.Ausweichend}; }
    void Stören(const Störung& Wie);
    // Judges the run, and the start after it where one was interrupted or has left something.
    void Urteilen(const Laufergebnis& Lauf, const std::string& Wie);
    void HinterVerweis(const std::string& Name);
    void Fortsetzen(const Laufergebnis& Lauf, const std::string& Wie);
    bool Verweigert(const Laufergebnis& Lauf, const std::string& Name) const;

    const Orte& Wo;
    const Schreiber& Wer;
    Bericht& Wohin;
    Welt Vorher;
    Welt Nachher;
    std::vector<Welt> Zwischen;
    Laufergebnis Ungestört;
};

}  // namespace liedwerk::haerte
