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
// A nuked building crumbles in about 5 ms, a nuked character dissolves in about 29 ms.
constexpr int kDissolveRowsPerMs = 60;
constexpr int kVaporizePicksPerMs = 140;
// A new city is built behind the loading box in five stages of 4 ms.
constexpr int kRoundStageMs = 4;

}  // namespace game::durations
