// The messages between the machines of a match: each reads back as it was sent, a hostile byte
// stream gets one line of why and costs no memory, join codes forgive how they were typed, and a
// joiner whose data differs learns which file.
#include "net/Protocol.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>

#include "TestSupport.h"
#include "net/DataDigest.h"
#include "net/Guest.h"
#include "net/JoinCode.h"
#include "net/NetSupport.h"

using game::Command;
using namespace net;

namespace {

std::vector<QByteArray> Feed(FrameReader& reader, const QByteArray& bytes) {
    QBuffer in;
    in.setData(bytes);
    in.open(QIODevice::ReadOnly);
    std::vector<QByteArray> frames;
    while (const auto f = reader.next(in)) frames.push_back(*f);
    return frames;
}

QByteArray Header(quint32 length) {
    QByteArray h(4, '\0');
    qToBigEndian(length, h.data());
    return h;
}

TEST(Protocol, EveryMessageReadsBackAsItWasSent) {
    // The session's tests send every kind of message, and a command is written as in a match
    // record; here are the edges of their values.
    const std::vector<Message> all = {
        Hello{1, "2.0.0", "otter lamp brave", "Ann", {{"sounds/throw.wav", 0xfedcba9876543210}}},
        SeatChoice{QString::fromUtf8("\xc3\x89mile \xf0\x9f\x91\x8d"), "Robo Grumbo"},
        Tick{2147483647},
        Digest{5000, 0xffffffffffffffff},
        Left{3, "nothing heard from Dee's computer for 30 s in his turn"},
    };
    for (const Message& m : all) {
        const Decoded d = decode(encode(m));
        ASSERT_TRUE(d.message) << d.error.toStdString();
        EXPECT_EQ(*d.message, m) << encode(m).toStdString();
        EXPECT_EQ(frame(m), Header(static_cast<quint32>(encode(m).size())) + encode(m));
    }
    // A command reads as in a match record, after its word.
    EXPECT_EQ(encode(CommandMessage{{1900, 1, Command::Kind::Angle, "45", 0}}),
              "command 1900 2 angle 45");
    EXPECT_EQ(encode(Digest{7, 255}), "digest 7 ff");
}

TEST(Protocol, WhatIsNoMessageGetsOneLineOfWhy) {
    const QByteArray setup = game::writeRecord(testing_support::TestLobby({}, {1}).setup);
    const struct {
        QByteArray text;
        const char* mentions;
    } rows[] = {
        {"", "unknown message"},
        {QByteArray("tick 5\0", 7), "no text"},
        {"launch 5", "unknown message \"launch\""},
        {"hello 1\ngame 2.0.0\ncode a\nname Ann\nfile zz sounds/a.wav", "hash"},
        {"hello 1\ngame 2.0.0\ncode a\nname Ann\x1b[31m", "name"},
        {"command 100 5 throw", "player"},
        {"command +5 1 throw", "time"},
        {"command 100 1 down 256", "key"},
        {"command 100 1 angle 1234", "box"},
        {"command 100 1 throw now", "takes nothing"},
        {"command 100 1 choose laser", "projectile"},
        {"tick 5\ntick 6", "more follows"},
        {"digest 5 xyz", "hash"},
        {"left 0 gone", "seat"},
        {"welcome 2\nremote 2\ngrumbo2 record 1\n", "setup"},
        {"welcome 1\nremote 2\n" + setup, "no other computer"},
        {"welcome 2\nremote 2 5\n" + setup, "remote seat"},
        {"start\nremote 3\n" + setup, "does not have"},
        {"seat\nname Ann\ncharacter ../../etc", "character"},
        {"refused " + QByteArray(300, 'x'), "longer"},
    };
    for (const auto& row : rows) {
        const Decoded d = decode(row.text);
        EXPECT_FALSE(d.message) << row.text.toStdString();
        EXPECT_TRUE(d.error.contains(QLatin1String(row.mentions))) << d.error.toStdString();
        EXPECT_FALSE(d.error.contains(QLatin1Char('\n')));
    }
    // Another version's greeting is read no further, so the host can say which version it is.
    const Decoded future = decode("hello 2\nwhatever comes in version 2");
    ASSERT_TRUE(future.message);
    EXPECT_EQ(std::get<Hello>(*future.message).protocol, 2);
}

TEST(Protocol, FramesAreCutFromTheStreamAndHugeOnesRefusedUnread) {
    const QByteArray stream = frame(Tick{1}) + frame(Bye{"done"});
    FrameReader reader;
    std::vector<QByteArray> frames;
    // As the network hands it over: a few bytes at a time.
    for (qsizetype at = 0; at < stream.size(); at += 3)
        for (const QByteArray& f : Feed(reader, stream.mid(at, 3))) frames.push_back(f);
    EXPECT_EQ(frames, (std::vector<QByteArray>{"tick 1", "bye done"}));

    FrameReader huge;
    QBuffer in;
    in.setData(Header(100u << 20) + QByteArray(4096, 'x'));
    in.open(QIODevice::ReadOnly);
    EXPECT_FALSE(huge.next(in));
    EXPECT_TRUE(huge.error().contains(QLatin1String("104857600"))) << huge.error().toStdString();
    EXPECT_EQ(in.pos(), 4);
    EXPECT_EQ(huge.buffered(), 0);

    // The greeting may be larger than what follows it.
    const QByteArray big = Header(200'000) + QByteArray(200'000, 'a');
    FrameReader greeting(kLargestGreeting), later(kLargestMessage);
    EXPECT_EQ(Feed(greeting, big).size(), 1u);
    EXPECT_TRUE(Feed(later, big).empty());
}

TEST(JoinCode, ThreeOfOurWordsTakenHoweverTyped) {
    QRandomGenerator random(7);
    QSet<QString> codes;
    for (int i = 0; i < 20; ++i) codes << makeJoinCode(random);
    EXPECT_GT(codes.size(), 15);
    const QStringList words = codes.values().join(' ').split(' ');
    EXPECT_EQ(words.size(), codes.size() * 3);
    for (const QString& w : words) EXPECT_TRUE(joinWords().contains(w)) << w.toStdString();
    // The session's tests join with the code typed otherwise, and with another.
    const QString code = QStringLiteral("otter lamp brave");
    for (const char* other : {"otterlamp brave", ""})
        EXPECT_FALSE(sameJoinCode(QString::fromLatin1(other), code)) << other;
    EXPECT_FALSE(sameJoinCode(QString(), QStringLiteral("  ")));
}

TEST(DataDigest, PicturesAndSoundsByPathAndTheFileThatDiffers) {
    QTemporaryDir dir;
    const auto put = [&](const QString& path, const QByteArray& bytes) {
        testing_support::Written(dir.filePath(path), bytes);
    };
    put("sounds/throw.wav", "RIFF one");
    put("characters/Dunik.bmp", "BM two");
    put("Credits.txt", "by us");
    put("icons/grumbo2-16.png", "png");
    const std::vector<FileDigest> host = digestData(core::DataFolder(dir.path()));
    ASSERT_EQ(host.size(), 2u);
    EXPECT_EQ(host[0].path, "characters/Dunik.bmp");
    EXPECT_EQ(host[1].path, "sounds/throw.wav");
    EXPECT_EQ(dataDifference(host, host), QString());

    put("sounds/throw.wav", "RIFF One");
    const std::vector<FileDigest> changed = digestData(core::DataFolder(dir.path()));
    EXPECT_EQ(dataDifference(host, changed), "sounds/throw.wav differs");
    EXPECT_EQ(dataDifference(host, {host[1]}),
              "characters/Dunik.bmp is missing on the joining computer");
    EXPECT_EQ(dataDifference({host[1]}, host), "characters/Dunik.bmp is missing on the host");
}

TEST(Address, HostAndPortAsPlayersTypeThem) {
    for (const auto& [text, host, port] : {std::tuple("example.org", "example.org", kDefaultPort),
                                           {" 10.0.0.2:5000", "10.0.0.2", 5000},
                                           {"[::1]:6000", "::1", 6000},
                                           {"fe80::1", "fe80::1", kDefaultPort}}) {
        ASSERT_TRUE(parseAddress(text)) << text;
        EXPECT_EQ(parseAddress(text)->host, host);
        EXPECT_EQ(parseAddress(text)->port, port);
    }
    for (const char* bad : {"", "host:", "host:0", "host:70000", "host:+80", "[::1", "a b"})
        EXPECT_FALSE(parseAddress(bad)) << bad;
}

}  // namespace
