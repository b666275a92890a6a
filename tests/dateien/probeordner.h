// A temporary folder of a test's own, gone with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace liedwerk::test {

class Probeordner {
  public:
    Probeordner() {
        std::string Muster = (std::filesystem::temp_directory_path() / "liedwerk-test-XXXXXX").string();
        Pfad = ::mkdtemp(Muster.data());
    }
    Probeordner(const Probeordner&) = delete;
    Probeordner& operator=(const Probeordner&) = delete;
    ~Probeordner() { std::filesystem::remove_all(Pfad); }

    // Creates the file and the folders above it; gives its full path.
    std::string Datei(std::string_view Name, std::string_view Inhalt = "x") const {
        const std::string Ganz = In(Name);
        std::filesystem::create_directories(std::filesystem::path(Ganz).parent_path());
        std::ofstream(Ganz, std::ios::binary) << Inhalt;
        return Ganz;
    }
    std::string In(std::string_view Name) const { return Pfad + "/" + std::string(Name); }

    std::string Pfad;
};

}  // namespace liedwerk::test
