// What the tests of media files share: a folder of their own, and reading with the default file types.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "medien/medienlesen.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {

class Medien : public testing::Test {
  protected:
    Medien() {
        Umgebung.Dateitypen = &DateitypenVorgabe();
        Umgebung.Zeit = &Zeit;
        Ordner = std::filesystem::temp_directory_path() /
                 ("liedwerk-medien-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "-" +
                  testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(Ordner);
    }
    ~Medien() override { std::filesystem::remove_all(Ordner); }

    std::string Anlegen(std::string_view Name, std::string_view Inhalt) const {
        const auto Pfad = Ordner / Name;
        // Emptying an old file makes some file systems wait for the disk.
        std::filesystem::remove(Pfad);
        std::ofstream(Pfad, std::ios::binary) << Inhalt;
        return Pfad.string();
    }
    // Makes the file and reads it.
    Datensatz Lesen(std::string_view Inhalt, std::string_view Code = "1111", const Datensatz& Vorgabe = {},
                    std::string_view Name = "titel.mp3") const {
        return MedienDatenLesen(Umgebung, Anlegen(Name, Inhalt), Vorgabe, {.Code = Lesecode::Lesen(Code)});
    }

    speicher::StehendeUhr Zeit;
    Medienumgebung Umgebung;
    std::filesystem::path Ordner;
};

}  // namespace liedwerk
