// Index clean-up, the finding: doubtful records of a working set, as pairs or as single files.
//
// A finding is plain data; what shall happen to its files is decided in aufraeumplan.h and carried out by
// core/aufraeumlauf.h. Methods that look at the files themselves get that look handed in.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"

namespace liedwerk {

// Methode: the list index of cboSuchmethode.
enum class Aufräummethode : std::uint8_t {
    GleicherDateiname = 0,
    GleicherPfad = 1,
    GleicherTitelId3v1 = 2,
    GleicherTitelId3v2 = 3,
    GleicheGröße = 4,
    NichtVorhanden = 5,
    OhneId3v1 = 6,
    OhneId3v1Neu = 7,
    OhneId3v2 = 8,
    OhneId3v2Neu = 9,
};

// The entries of cboSuchmethode, by Methode.
inline constexpr std::array<std::string_view, 10> Suchmethoden = {
    "Dateien mit gleichem Dateinamen",
    "Dateien mit gleichem Pfad- und Dateinamen",
    "Dateien mit gleichen Feldern <Titel-ID3v1> und <Interpret-ID3v1>",
    "Dateien mit gleichen Feldern <Titel-ID3v2> und <Interpret-ID3v2>",
    "Dateien mit gleicher Größe",
    "Dateien die nicht existieren",
    "Dateien ohne ID3v1-TAG (Dateien nicht neu lesen)",
    "Dateien ohne ID3v1-TAG (Dateien neu lesen)",
    "Dateien ohne ID3v2-TAG (Dateien nicht neu lesen)",
    "Dateien ohne ID3v2-TAG (Dateien neu lesen)",
};

// True for the methods that find pairs.
constexpr bool FindetPaare(Aufräummethode Methode) {
    return Methode <= Aufräummethode::GleicheGröße;
}

struct Aufräumfund {
    Satznummer Ergebnis1 = 0;
    Satznummer Ergebnis2 = 0;  // 0: a single file
    bool operator==(const Aufräumfund&) const = default;
};

// The row of a finding in lstEinträge.
std::string FundText(const Katalog& Index, const Aufräumfund& Fund);

// The fields in which two records have the same value that is not empty, by their column names, joined by
// ", ".
std::string GleicheFelder(const Katalog& Index, const Aufräumfund& Paar);
// The text for several rows: how many files they name, how long these play and what they take.
std::string AuswahlUmfang(const Katalog& Index, std::span<const Aufräumfund> Funde);

// What the look at a record's file says.
enum class Dateibefund { Unauffällig, Verdächtig, Abbruch };
using Dateiprüfung = std::function<Dateibefund(Satznummer Nummer)>;

// Searches the working set with a Fortschritt that can be cancelled: then the findings so far are the answer.
// A pair is a record and the first one behind it with the same key, so that three equal ones make two pairs.
// Prüfung is asked by NichtVorhanden, OhneId3v1Neu and OhneId3v2Neu only.
std::vector<Aufräumfund> DurchsucheIndex(const Katalog& Index, std::span<const Satznummer> Arbeitsmenge,
                                         Aufräummethode Methode, const Dateiprüfung& Prüfung,
                                         Oberfläche& Person);

}  // namespace liedwerk
