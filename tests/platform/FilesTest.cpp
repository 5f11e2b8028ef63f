// The file calls: what the buffer must not be seen to do, and how a document is replaced.
#include "files/Disco.h"

#include <sys/stat.h>

using namespace tessaro;
using namespace prova;

TEST(FileSistema, ReadsOfAnySizeAndSeeksSeeTheSameBytes) {
    const Cartella c;
    std::string tutto(1'000'003, '\0');
    for (std::size_t i = 0; i < tutto.size(); ++i) tutto[i] = static_cast<char>(i * 2654435761U >> 24);
    metti(c / "f", tutto);
    std::int16_t ref = 0;
    ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(c / "f"), fsRdPerm, ref), noErr);
    std::string visto;
    constexpr std::int32_t misure[] = {1, 84, 65536, 3, 300000, 262144, 262143, 7};
    for (std::size_t i = 0;; ++i) {
        std::string pezzo(static_cast<std::size_t>(misure[i % std::size(misure)]), '?');
        auto n = static_cast<std::int32_t>(pezzo.size());
        const OSErr e = FSRead(ref, n, pezzo.data());
        visto.append(pezzo, 0, static_cast<std::size_t>(n));
        if (e == eofErr) break;
        ASSERT_EQ(e, noErr);
        if (i % 3 != 0) continue;
        const char* avanti = nullptr;
        std::int64_t quanti = 0;
        FSPeek(ref, avanti, quanti);
        ASSERT_EQ(std::string(avanti, static_cast<std::size_t>(quanti)),
                  tutto.substr(visto.size(), static_cast<std::size_t>(quanti)));
    }
    EXPECT_TRUE(visto == tutto);
    for (const std::int64_t dove : {0, 999'999, 5, 262'144, 700'000}) {
        ASSERT_EQ(SetFPos(ref, dove), noErr);
        char b = 0;
        std::int32_t n = 1;
        ASSERT_EQ(FSRead(ref, n, &b), noErr);
        EXPECT_EQ(b, tutto[static_cast<std::size_t>(dove)]);
    }
    EXPECT_EQ(SetFPos(ref, 2'000'000), eofErr);
    EXPECT_EQ(SetFPos(ref, -1), posErr);
    EXPECT_EQ(FSClose(ref), noErr);
    EXPECT_EQ(FSClose(ref), fnOpnErr);
}

TEST(FileSistema, WritesReadsAndSeeksMayMix) {
    const Cartella c;
    metti(c / "f", "0123456789");
    std::int16_t ref = 0;
    ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(c / "f"), fsRdWrPerm, ref), noErr);
    char due[2];
    std::int32_t n = 2;
    FSRead(ref, n, due);
    n = 2;
    FSWrite(ref, n, "ab");
    n = 2;
    ASSERT_EQ(FSRead(ref, n, due), noErr);
    EXPECT_EQ(std::string(due, 2), "45");
    SetFPos(ref, 0);
    n = 1;
    FSWrite(ref, n, "X");
    SetFPos(ref, 10);
    n = 1;
    FSWrite(ref, n, "Y");
    std::int64_t fine = 0;
    GetEOF(ref, fine);
    EXPECT_EQ(fine, 11);
    EXPECT_EQ(FSClose(ref), noErr);
    EXPECT_EQ(contenuto(c / "f"), "X1ab456789Y");
}

TEST(FileSistema, WhatIsAbandonedNeverWas) {
    const Cartella c;
    metti(c / "f", "old");
    std::int16_t ref = 0;
    for (const char* nome : {"f", "new"}) {
        ASSERT_EQ(FSpOpenReplacing(FSMakeFSSpec(c / nome), 0, 0, ref), noErr);
        std::string molto(600'000, 'x');
        auto n = static_cast<std::int32_t>(molto.size());
        ASSERT_EQ(FSWrite(ref, n, molto.data()), noErr);
        FSAbandon(ref);
    }
    EXPECT_EQ(contenuto(c / "f"), "old");
    EXPECT_EQ(c.quanti(), 1U);
}

TEST(FileSistema, OtherNamesOfAFileSeeTheNewContent) {
    const Cartella c;
    metti(c / "f", "a long old content");
    std::filesystem::create_hard_link(c / "f", c / "g");
    std::int16_t ref = 0;
    ASSERT_EQ(FSpOpenReplacing(FSMakeFSSpec(c / "f"), 0, 0, ref), noErr);
    std::int32_t n = 3;
    FSWrite(ref, n, "new");
    EXPECT_EQ(FSClose(ref), noErr);
    EXPECT_EQ(contenuto(c / "g"), "new");
}

TEST(FileSistema, WhatIsNoFileIsNotOpened) {
    const Cartella c;
    ASSERT_EQ(::mkfifo((c / "pipe").c_str(), 0600), 0);
    std::int16_t ref = 0;
    EXPECT_EQ(FSpOpenDF(FSMakeFSSpec(c / "."), fsRdPerm, ref), fnfErr);
    EXPECT_EQ(FSpOpenDF(FSMakeFSSpec(c / "pipe"), fsRdPerm, ref), fnfErr);   // and nobody waits for its other end
    EXPECT_EQ(FSpOpenDF(FSMakeFSSpec(c / "none"), fsRdPerm, ref), fnfErr);
    EXPECT_EQ(FSpOpenReplacing(FSMakeFSSpec(c / "no/such"), 0, 0, ref), fnfErr);
    EXPECT_EQ(FSpOpenReplacing(FSMakeFSSpec(c / "."), 0, 0, ref), fnfErr);
    FInfo info;
    metti(c / "a.TS3D", "");
    ASSERT_EQ(FSpGetFInfo(FSMakeFSSpec(c / "a.TS3D"), info), noErr);
    EXPECT_EQ(info.fdType, tipoDi("TS3D"));
}
