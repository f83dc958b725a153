// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/pictures/Picture.h"

namespace brivolant::bench {

/// Takes "--smoke" out of the arguments: every table then runs each of its rows once, on as little
/// as shows that it still works. Its figures mean nothing and no aim is judged.
void TakeSmoke(int& argc, char** argv);
bool Smoke();
/// The count for a table, or the one for a smoke run.
int Count(int full, int smoke);
/// Ends the bench with a sentence.
[[noreturn]] void GiveUp(const std::string& reason);

/// Handles events until the condition holds, and sleeps between them as a program does: the threads
/// have the cores. Gives up after ten minutes.
void HandleUntil(const std::string& what, const std::function<bool()>& condition);

/// One timed thing.
using Work = std::function<void()>;

/// The fastest of several runs of each work, in milliseconds. The works take turns, so that a busy
/// moment of the machine meets all of them; the fastest run is the one it disturbed least.
std::vector<double> Fastest(const std::vector<Work>& works, int rounds);

/// The 95th percentile of the times of single runs of one work, in milliseconds.
double Percentile95(const std::function<void(int run)>& work, int runs);

/// The head of a table of rows.
void Heading();
/// One row: our time or size, the peer's, their ratio, and the ratio that is promised; 0 for a row
/// that only informs. Says so when a row misses its aim.
void Row(const std::string& work, double ours, const std::string& peer, double theirs, double aim);

/// Runs a program and waits for it; its output goes nowhere. Ends the bench if it fails.
void RunProgram(const std::vector<std::string>& command);
/// The peak memory in bytes that the command prints of itself with --timing. (The system's count
/// for a child holds what this process used before the child became another program.)
double PeakTold(const std::vector<std::string>& command);
/// Any number that a command prints as JSON under that key. Ends the bench if there is none.
double NumberTold(const std::vector<std::string>& command, const std::string& key);

/// Peers in this process, on the same pixels as three channels in memory.
class VipsPeer {
 public:
  VipsPeer(const Picture& picture, const char* programName);
  ~VipsPeer();
  VipsPeer(const VipsPeer&) = delete;
  VipsPeer& operator=(const VipsPeer&) = delete;
  void Blur(double sigma) const;
  void Resize(double scale) const;
  void Rotate90() const;

 private:
  std::vector<unsigned char> memory_;
  struct Image;
  Image* image_;
};

class OpenCvPeer {
 public:
  explicit OpenCvPeer(const Picture& picture);
  ~OpenCvPeer();
  OpenCvPeer(const OpenCvPeer&) = delete;
  OpenCvPeer& operator=(const OpenCvPeer&) = delete;
  void Blur(double sigma) const;
  void Resize(int width, int height) const;
  void Lookup() const;
  void Rotate90() const;
  void Flip() const;
  /// A sum of the channels for each channel.
  void Sepia() const;
  /// The mean along a diagonal of 36 pixels.
  void MotionBlur() const;
  /// Bilinear lookup at places that were worked out before, the part that all warps share.
  void Warp() const;

 private:
  struct Images;
  Images* images_;
};

}  // namespace brivolant::bench
