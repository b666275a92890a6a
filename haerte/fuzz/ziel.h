// Fuzz targets: what they are, and what they share.
//
// A target is one function that takes any bytes, hands them to a reader of outside bytes and checks what must
// hold whatever they are: reading ends without a fault, and what was read, written and read again is the
// same. A broken rule ends the process (Verletzt), which libFuzzer keeps as a finding together with the
// input. All targets live in one program; the environment's LIEDWERK_FUZZ_ZIEL names the one that runs.
// haerte/fuzzen.sh runs them, and docs/verlaesslichkeit.md tells what came of it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "index/datensatz.h"

namespace liedwerk::fuzz {

struct Ziel {
    std::string_view Name;
    void (*Prüfen)(std::string_view Eingabe);
};

void IndexPrüfen(std::string_view Eingabe);
void BestandPrüfen(std::string_view Eingabe);
void FelderaustauschPrüfen(std::string_view Eingabe);
void EinstellungenPrüfen(std::string_view Eingabe);
void KommandozeilePrüfen(std::string_view Eingabe);
void KlangPrüfen(std::string_view Eingabe);
void WavePrüfen(std::string_view Eingabe);
void OggPrüfen(std::string_view Eingabe);
void Id3v1Prüfen(std::string_view Eingabe);
void Id3v2Prüfen(std::string_view Eingabe);
void Id3v2ModernPrüfen(std::string_view Eingabe);
void LyricsPrüfen(std::string_view Eingabe);
void RettungPrüfen(std::string_view Eingabe);
void PlaylistePrüfen(std::string_view Eingabe);
void NamensplanPrüfen(std::string_view Eingabe);
void XmcdPrüfen(std::string_view Eingabe);
void CDSpeicherPrüfen(std::string_view Eingabe);
void CddbPrüfen(std::string_view Eingabe);
void HttpPrüfen(std::string_view Eingabe);
void CDAbbildPrüfen(std::string_view Eingabe);
void SuchePrüfen(std::string_view Eingabe);
void SpielerPrüfen(std::string_view Eingabe);
void AblagePrüfen(std::string_view Eingabe);
void WertePrüfen(std::string_view Eingabe);

// Ends the process: the rule that was broken, and the two things that differ.
[[noreturn]] void Verletzt(std::string_view Regel, std::string_view Erwartet, std::string_view Gefunden);
void Fordern(bool Erfüllt, std::string_view Regel);
void Gleich(std::string_view Regel, std::string_view Erwartet, std::string_view Gefunden);
// Two records in all members; the message names the field that differs, or shows those without a number.
void Gleich(std::string_view Regel, const Datensatz& Erwartet, const Datensatz& Gefunden);

// The private folder of this process, made at the first call (below TMPDIR, else /dev/shm) and removed at its
// end.
const std::string& Ablage();
// Writes a file into it, in place of an older one; gives its path.
std::string DateiLegen(std::string_view Name, std::string_view Bytes);
std::string DateiInhalt(std::string_view Pfad);

// The pieces of an input between NUL bytes, the last one takes the rest; always Anzahl of them.
std::vector<std::string_view> Stücke(std::string_view Eingabe, std::size_t Anzahl);

}  // namespace liedwerk::fuzz
