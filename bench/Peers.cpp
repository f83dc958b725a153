// SPDX-License-Identifier: MIT
#include "Peers.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vips/vips.h>

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string_view>

namespace brivolant::bench {

namespace {
bool g_smoke = false;
}

void TakeSmoke(int& argc, char** argv) {
  const auto last = std::remove_if(argv + 1, argv + argc, [](const char* argument) {
    return std::string_view(argument) == "--smoke";
  });
  g_smoke = last != argv + argc;
  argc = static_cast<int>(last - argv);
}

bool Smoke() {
  return g_smoke;
}

int Count(int full, int smoke) {
  return g_smoke ? smoke : full;
}

void GiveUp(const std::string& reason) {
  std::fprintf(stderr, "bench: %s\n", reason.c_str());
  std::exit(1);
}

void HandleUntil(const std::string& what, const std::function<bool()>& condition) {
  constexpr std::chrono::minutes kPatience(10);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  QTimer wake;
  wake.start(2);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) GiveUp("nothing comes of waiting for " + what);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

std::vector<double> Fastest(const std::vector<Work>& works, int rounds) {
  rounds = Count(rounds, 1);
  std::vector<double> fastest(works.size(), std::numeric_limits<double>::max());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      const auto start = std::chrono::steady_clock::now();
      works[i]();
      const std::chrono::duration<double, std::milli> time =
          std::chrono::steady_clock::now() - start;
      fastest[i] = std::min(fastest[i], time.count());
    }
  }
  return fastest;
}

namespace {

void Spawn(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int status = -1;
  if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0 ||
      waitpid(child, &status, 0) != child || status != 0) {
    GiveUp(command[0] + " failed");
  }
  posix_spawn_file_actions_destroy(&actions);
}

}  // namespace

void RunProgram(const std::vector<std::string>& command) {
  Spawn(command);
}

void Heading() {
  std::printf("%-46s %10s  %-34s %10s %8s %8s\n", "work", "ours", "beside", "its", "ratio",
              "at most");
}

void Row(const std::string& work, double ours, const std::string& peer, double theirs, double aim) {
  if (!std::isfinite(ours) || ours <= 0 || !std::isfinite(theirs)) GiveUp("no time for " + work);
  if (g_smoke) aim = 0;
  const double ratio = ours / theirs;
  char aimText[16] = "-";
  if (aim > 0) std::snprintf(aimText, sizeof aimText, "%.2f", aim);
  std::printf("%-46s %10.2f  %-34s %10.2f %8.3f %8s %s\n", work.c_str(), ours, peer.c_str(), theirs,
              ratio, aimText, aim > 0 && ratio > aim ? "MISSED" : "");
  std::fflush(stdout);
}

double Percentile95(const std::function<void(int)>& work, int runs) {
  runs = Count(runs, 2);
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work(i);
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() * 95 / 100];
}

double PeakTold(const std::vector<std::string>& command) {
  return NumberTold(command, "peak_memory_bytes");
}

double NumberTold(const std::vector<std::string>& command, const std::string& key) {
  std::string line;
  for (const std::string& argument : command) line += "'" + argument + "' ";
  line += "2>/dev/null";
  std::FILE* output = popen(line.c_str(), "r");
  if (output == nullptr) return 0;
  std::array<char, 4096> text{};
  const std::size_t size = std::fread(text.data(), 1, text.size() - 1, output);
  pclose(output);
  const std::string_view json(text.data(), size);
  const std::string name = "\"" + key + "\":";
  const std::size_t at = json.find(name);
  if (at == std::string_view::npos) GiveUp(command[0] + " does not tell " + key);
  return std::atof(text.data() + at + name.size());
}

struct VipsPeer::Image {
  VipsImage* vips;
};

VipsPeer::VipsPeer(const Picture& picture, const char* programName) : image_(new Image{}) {
  VIPS_INIT(programName);
  vips_cache_set_max(0);
  memory_.reserve(static_cast<std::size_t>(picture.Width()) * picture.Height() * 3);
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Color color = picture.At(x, y);
      memory_.insert(memory_.end(), {color.Red, color.Green, color.Blue});
    }
  }
  image_->vips = vips_image_new_from_memory(memory_.data(), memory_.size(), picture.Width(),
                                            picture.Height(), 3, VIPS_FORMAT_UCHAR);
}

VipsPeer::~VipsPeer() {
  g_object_unref(image_->vips);
  delete image_;
}

namespace {
/// Computes a pipeline into memory.
void Finish(VipsImage* pipeline) {
  std::size_t size = 0;
  void* bytes = vips_image_write_to_memory(pipeline, &size);
  g_free(bytes);
  g_object_unref(pipeline);
}
}  // namespace

void VipsPeer::Blur(double sigma) const {
  VipsImage* out = nullptr;
  vips_gaussblur(image_->vips, &out, sigma, nullptr);
  Finish(out);
}

void VipsPeer::Resize(double scale) const {
  VipsImage* out = nullptr;
  vips_resize(image_->vips, &out, scale, nullptr);
  Finish(out);
}

void VipsPeer::Rotate90() const {
  VipsImage* out = nullptr;
  vips_rot(image_->vips, &out, VIPS_ANGLE_D90, nullptr);
  Finish(out);
}

struct OpenCvPeer::Images {
  cv::Mat source;
  cv::Mat target;
  cv::Mat turned;
  cv::Mat table;
  cv::Mat placesX;
  cv::Mat placesY;
};

OpenCvPeer::OpenCvPeer(const Picture& picture) : images_(new Images) {
  const cv::Mat four(picture.Height(), picture.Width(), CV_8UC4,
                     const_cast<std::uint8_t*>(picture.View().data), picture.View().stride);
  cv::cvtColor(four, images_->source, cv::COLOR_BGRA2BGR);
  images_->table = cv::Mat(1, 256, CV_8U);
  for (int i = 0; i < 256; ++i)
    images_->table.at<std::uint8_t>(i) = static_cast<std::uint8_t>(255 - i);
}

OpenCvPeer::~OpenCvPeer() {
  delete images_;
}

void OpenCvPeer::Blur(double sigma) const {
  cv::GaussianBlur(images_->source, images_->target, cv::Size(0, 0), sigma, sigma,
                   cv::BORDER_REPLICATE);
}
void OpenCvPeer::Resize(int width, int height) const {
  cv::Mat small;
  cv::resize(images_->source, small, cv::Size(width, height), 0, 0, cv::INTER_AREA);
}
void OpenCvPeer::Lookup() const {
  cv::LUT(images_->source, images_->table, images_->target);
}
void OpenCvPeer::Rotate90() const {
  cv::rotate(images_->source, images_->turned, cv::ROTATE_90_CLOCKWISE);
}
void OpenCvPeer::Flip() const {
  cv::flip(images_->source, images_->target, 1);
}
void OpenCvPeer::Sepia() const {
  const cv::Matx33f mix(0.131F, 0.534F, 0.272F, 0.168F, 0.686F, 0.349F, 0.189F, 0.769F, 0.393F);
  cv::transform(images_->source, images_->target, mix);
}
void OpenCvPeer::MotionBlur() const {
  constexpr int kLength = 26;
  cv::Mat line = cv::Mat::eye(kLength, kLength, CV_32F) / kLength;
  cv::filter2D(images_->source, images_->target, -1, line, cv::Point(-1, -1), 0,
               cv::BORDER_REPLICATE);
}
void OpenCvPeer::Warp() const {
  constexpr float kSwing = 40;
  constexpr float kPeriod = 240;
  if (images_->placesX.empty()) {
    images_->placesX.create(images_->source.size(), CV_32F);
    images_->placesY.create(images_->source.size(), CV_32F);
    for (int y = 0; y < images_->source.rows; ++y) {
      for (int x = 0; x < images_->source.cols; ++x) {
        const auto across = static_cast<float>(x);
        const auto down = static_cast<float>(y);
        images_->placesX.at<float>(y, x) = across + kSwing * std::sin(down / kPeriod);
        images_->placesY.at<float>(y, x) = down + kSwing * std::sin(across / kPeriod);
      }
    }
  }
  cv::remap(images_->source, images_->target, images_->placesX, images_->placesY, cv::INTER_LINEAR,
            cv::BORDER_CONSTANT);
}

}  // namespace brivolant::bench
