// The mount table on given texts: which drive holds a path, and of what kind it is.
#include "plattform/linux/einhaengungen.h"

#include <gtest/gtest.h>

namespace liedwerk {
namespace {

constexpr auto Text =
    "27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
    "28 27 8:1 / /home rw shared:3 master:1 - ext4 /dev/sda1 rw\n"
    "29 27 8:17 / /media/ute/MEINE\\040MUSIK rw - vfat /dev/sdb1 rw\n"
    "30 27 0:50 / /media tmpfs\n"
    "31 27 11:0 / /media/cdrom0 ro - iso9660 /dev/sr0 ro\n"
    "32 27 0:51 / /mnt/nas rw - nfs4 server:/musik rw\n"
    "33 27 0:52 / /home/ute/fern rw - fuse.sshfs ute@fern:/ rw\n"
    "34 27 0:53 / /tmp rw - tmpfs tmpfs rw\n"
    "35 27 1:0 / /schnell rw - ext4 /dev/ram0 rw\n"
    "36 27 8:33 / /home rw - btrfs /dev/sdc1 rw\n"
    "kaputt\n";

struct Einhängungsprobe : testing::Test {
    std::vector<Einhängung> Tabelle = EinhängungenLesen(Text);
    Laufwerksart Art(std::string_view Ort) {
        const auto* Fund = EinhängungAn(Tabelle, Ort);
        return Fund == nullptr ? Laufwerksart::Keines : ArtVon(*Fund);
    }
};

TEST_F(Einhängungsprobe, DasLängsteLaufwerkGewinntUndNamenSindGanzeNamen) {
    EXPECT_EQ(LaufwerkVon(Tabelle, "/usr/x.mp3"), "/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/home/ute/a.mp3"), "/home/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/homer/a.mp3"), "/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/home"), "/home/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/media/ute/MEINE MUSIK/a/b.mp3"), "/media/ute/MEINE MUSIK/");
    EXPECT_EQ(LaufwerkVon({}, "/was/auch/immer"), "/");
}

TEST_F(Einhängungsprobe, AbgezogeneMedienBleibenLaufwerke) {
    EXPECT_EQ(LaufwerkVon(Tabelle, "/media/ute/STICK/a.mp3"), "/media/ute/STICK/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/run/media/ute/STICK"), "/run/media/ute/STICK/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/mnt/usb/a.mp3"), "/mnt/usb/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/mnt"), "/");
    EXPECT_EQ(LaufwerkVon(Tabelle, "/media/ute"), "/");
    // The folders of a disc mounted one level higher are no drives.
    EXPECT_EQ(LaufwerkVon(Tabelle, "/media/cdrom0/Album/1.mp3"), "/media/cdrom0/");
}

TEST_F(Einhängungsprobe, ArtenKommenAusZeileUndOrt) {
    EXPECT_EQ(Art("/"), Laufwerksart::Fest);
    EXPECT_EQ(Art("/media/ute/MEINE MUSIK/"), Laufwerksart::Wechsel);
    EXPECT_EQ(Art("/media/cdrom0/"), Laufwerksart::CdRom);
    EXPECT_EQ(Art("/mnt/nas/"), Laufwerksart::Netzwerk);
    EXPECT_EQ(Art("/home/ute/fern/"), Laufwerksart::Netzwerk);
    EXPECT_EQ(Art("/tmp/"), Laufwerksart::Fest) << "files in /tmp are no files on a medium";
    EXPECT_EQ(Art("/schnell/"), Laufwerksart::Speicher);
    EXPECT_EQ(Art("/kaputt/"), Laufwerksart::Keines);
    ASSERT_NE(EinhängungAn(Tabelle, "/home/"), nullptr);
    EXPECT_EQ(EinhängungAn(Tabelle, "/home/")->Quelle, "/dev/sdc1") << "the later mount hides the earlier";
}

TEST(Vorgesehene, OrteStehenAuchOhneEinhängungFest) {
    const auto Tabelle = VorgeseheneLesen(
        "# /etc/fstab\n\nUUID=1 / ext4 defaults 0 1\nUUID=2 none swap sw 0 0\n/dev/sdb1\t/daten  ext4 "
        "noauto\n"
        "//nas/musik /home/ute/Meine\\040Musik cifs x\n#/dev/x /weg ext4\nkaputt\n");
    ASSERT_EQ(Tabelle.size(), 2U);
    EXPECT_EQ(Tabelle[0].Ort, "/home/ute/Meine Musik/");
    EXPECT_EQ(ArtVon(Tabelle[0]), Laufwerksart::Netzwerk);
    EXPECT_EQ(Tabelle[1].Ort, "/daten/");
}

TEST(Zahlenfolgen, NurGanzeFolgenWerdenErsetzt) {
    EXPECT_EQ(ZahlenfolgenAuflösen("a\\040b\\134"), "a b\\");
    EXPECT_EQ(ZahlenfolgenAuflösen("GR\\xc3\\xbcN\\x2f"), "GRüN/");
    EXPECT_EQ(ZahlenfolgenAuflösen("\\04"), "\\04");
    EXPECT_EQ(ZahlenfolgenAuflösen("\\x4"), "\\x4");
    EXPECT_EQ(ZahlenfolgenAuflösen("\\777\\"), "\\777\\");
}

}  // namespace
}  // namespace liedwerk
