#pragma once
// How long the waits the players see last. A wait of n ms on a millisecond counter ends when the
// counter has passed n, so most of these are one more than the wait they stand for.
namespace game::durations {

// A crater grows by a ring every 4 ms, the blast over a hit character every 3 ms.
constexpr int kCraterRingMs = 5;
constexpr int kBlastRingMs = 4;
// The victory dance: twelve frames of 40 ms.
constexpr int kDanceFrames = 12;
constexpr int kDanceFrameMs = 41;
// The final board stands five seconds before the game-over box opens.
constexpr int kGameOverAfterMs = 5001;
// A nuked building crumbles from the ground up a few rows at a time, the tallest in about half a
// second; a nuked character dissolves into the sky in half a second.
constexpr int kDissolveStepMs = 5;
constexpr int kDissolveRowsPerStep = 3;
constexpr int kVaporizeStepMs = 5;
constexpr int kVaporizePicksPerStep = 40;
// Each text of the loading box stands long enough to be read.
constexpr int kLoadingStatusMs = 250;

}  // namespace game::durations
