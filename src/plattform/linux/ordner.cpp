#include "plattform/linux/ordner.h"

#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

#include "plattform/linux/audiocd.h"
#include "plattform/linux/griff.h"

namespace liedwerk {
namespace {

struct Ordnerschließer {
    void operator()(DIR* Offen) const { ::closedir(Offen); }
};

bool IstPunktname(std::string_view Name) {
    return Name == "." || Name == "..";
}

// True for a symbolic link.
bool IstVerweis(int Ordner, const dirent& Roh) {
    if (Roh.d_type != DT_UNKNOWN) return Roh.d_type == DT_LNK;
    struct stat Angaben {};
    return ::fstatat(Ordner, Roh.d_name, &Angaben, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(Angaben.st_mode);
}

// Fills the kind of an entry. False for what is neither file nor folder, links followed.
bool ArtLesen(int Ordner, const dirent& Roh, Ordnereintrag& Eintrag) {
    // A plain file is told by the listing itself; only links, folders (for their identity) and file systems
    // that tell no kind cost a call.
    if (Roh.d_type == DT_REG) return true;
    if (Roh.d_type != DT_DIR && Roh.d_type != DT_LNK && Roh.d_type != DT_UNKNOWN) return false;
    struct stat Angaben {};
    if (::fstatat(Ordner, Roh.d_name, &Angaben, 0) != 0) {
        // A folder that may not be looked at is a folder all the same; listing it will yield nothing.
        Eintrag.IstOrdner = Roh.d_type == DT_DIR;
        Eintrag.Inode = Roh.d_ino;
        return Eintrag.IstOrdner;
    }
    if (!S_ISDIR(Angaben.st_mode)) return S_ISREG(Angaben.st_mode);
    Eintrag.IstOrdner = true;
    Eintrag.IstVerweis = IstVerweis(Ordner, Roh);
    Eintrag.Gerät = Angaben.st_dev;
    Eintrag.Inode = Angaben.st_ino;
    return true;
}

}  // namespace

bool Systemordnerleser::Auflisten(std::string_view Ordner,
                                  const std::function<bool(const Ordnereintrag&)>& Besuch) const {
    const auto Name = Systempfad(Ordner);
    if (!Name) return false;
    const std::unique_ptr<DIR, Ordnerschließer> Offen(::opendir(Name->c_str()));
    if (!Offen) return errno == ENOTDIR && CDAuflisten(Ordner, Besuch);
    const int Griff = ::dirfd(Offen.get());
    for (;;) {
        errno = 0;  // the end of the folder and an error look alike else
        const dirent* const Roh = ::readdir(Offen.get());
        if (Roh == nullptr) return errno == 0;
        if (IstPunktname(Roh->d_name)) continue;
        Ordnereintrag Eintrag;
        Eintrag.Name = Roh->d_name;
        if (!ArtLesen(Griff, *Roh, Eintrag)) continue;
        if (!Besuch(Eintrag)) return true;
    }
}

}  // namespace liedwerk
