// The question whether to go on, asked while several threads walk the records.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>

namespace liedwerk {

// Only the calling thread (number 0) asks Weiter, now and then, with the count of records that are done; once
// it gave false, all threads are told to stop.
class Fragezeichen {
  public:
    explicit Fragezeichen(const std::function<bool(std::size_t)>& Frage) : Weiter(Frage) {}

    // To be called for each record of a thread, with the count of its records so far.
    bool Weitermachen(std::size_t Faden, std::size_t Erledigt) {
        if (Erledigt % SätzeJeFrage != 0) return true;
        Summe += Erledigt == 0 ? 0 : SätzeJeFrage;
        if (Faden == 0 && !Angehalten && !Weiter(Summe)) Angehalten = true;
        return !Angehalten;
    }
    bool IstAngehalten() const { return Angehalten; }

  private:
    static constexpr std::size_t SätzeJeFrage = 4096;

    const std::function<bool(std::size_t)>& Weiter;
    std::atomic<std::size_t> Summe = 0;
    std::atomic<bool> Angehalten = false;
};

}  // namespace liedwerk
