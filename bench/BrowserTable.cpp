// SPDX-License-Identifier: MIT
// What a person feels in the browser: generated folders, offscreen, thumbnails beside
// vipsthumbnail on the same files with a process for each core.
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QEventLoop>
#include <QScrollBar>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

#include "Peers.h"
#include "browser/FilePreview.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "kit/SvgIcon.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/AtomicFile.h"
#include "platform/services/SharedFolders.h"
#include "platform/services/SystemServices.h"
#include "sources/ThreadediPhotoReader.h"

namespace brivolant::bench {
namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Bytes that this process holds now.
double Resident() {
  std::ifstream file("/proc/self/statm");
  double pages = 0;
  double resident = 0;
  file >> pages >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// Empty files named as a camera does.
FolderItem Fill(const FolderItem& folder, int count) {
  (void)folder.CreateAsFolder();
  for (int i = 0; i < count; ++i) {
    std::ofstream(folder.Child("IMG_" + std::to_string(i) + ".txt").Path()) << "x";
  }
  return folder;
}

struct View {
  explicit View(const FolderItem& cache)
      : browser(std::make_shared<ThumbnailMaker>(ThumbnailCache(cache, "bench")),
                std::make_shared<FilePreviewer>()) {
    browser.resize(1200, 800);
    browser.show();
    QApplication::processEvents();
  }
  /// Milliseconds until the folder is painted.
  double FirstPaint(const FolderItem& folder, int count) {
    const auto start = Clock::now();
    browser.DisplayItem(folder);
    HandleUntil("a folder", [&] { return browser.Count() == count; });
    browser.IconView().viewport()->repaint();
    return Since(start);
  }
  multiViewFileBrowser browser;
};

void Listings(const FolderItem& scratch) {
  const int tens = Count(10000, 100);
  const int hundreds = Count(100000, 1000);
  const FolderItem some = Fill(scratch.Child("ten-thousand"), tens);
  const FolderItem many = Fill(scratch.Child("hundred-thousand"), hundreds);
  const double before = Resident();
  View view(scratch.Child("cache"));
  Row("10,000 files listed to first paint", view.FirstPaint(some, tens), "300 ms", 300, 1);
  Row("100,000 files listed to first paint", view.FirstPaint(many, hundreds), "2000 ms", 2000, 1);
  constexpr double kMega = 1 << 20;
  // Of a short list, nothing can be told.
  const double held = std::max(Resident() - before, 1.0);
  Row("memory of 100,000 files, MiB", held / kMega, "250 MiB", 250, 1);
  view.browser.myImageGetter().Kill();
  QScrollBar& bar = *view.browser.IconView().verticalScrollBar();
  Row("one frame while scrolling 100,000 files, 95%",
      Percentile95(
          [&](int i) {
            bar.setValue(1000 + 97 * i);
            view.browser.IconView().viewport()->repaint();
          },
          200),
      "16 ms", 16, 1);
}

/// A library of that many photos in rolls of a hundred and albums of five hundred.
std::string LibraryOf(int photos) {
  std::ostringstream xml;
  xml << R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)";
  const auto lists = [&](const char* name, const char* title, int size) {
    xml << "<key>" << name << "</key><array>";
    for (int i = 0; i < photos; i += size) {
      xml << "<dict><key>" << title << "</key><string>Number " << i
          << "</string><key>KeyList</key><array>";
      for (int k = i; k < std::min(i + size, photos); ++k) xml << "<string>" << k << "</string>";
      xml << "</array></dict>";
    }
    xml << "</array>";
  };
  lists("List of Albums", "AlbumName", 500);
  lists("List of Rolls", "RollName", 100);
  xml << "<key>Master Image List</key><dict>";
  constexpr const char* kFolder = "/Users/ann/Pictures/iPhoto Library/Originals/2008/Trip/IMG_";
  for (int i = 0; i < photos; ++i) {
    xml << "<key>" << i
        << "</key><dict><key>MediaType</key><string>Image</string><key>Caption</key><string>IMG_"
        << i << "</string><key>GUID</key><string>A1B2C3D4-" << i
        << "</string><key>Aspect Ratio</key><real>1.333333</real><key>Rating</key>"
           "<integer>0</integer><key>DateAsTimerInterval</key><real>220000000.5</real>"
           "<key>ImagePath</key><string>"
        << kFolder << i << ".JPG</string><key>ThumbPath</key><string>" << kFolder << i
        << ".JPG</string><key>ImageType</key><string>JPEG</string></dict>";
  }
  xml << "</dict></dict></plist>";
  return xml.str();
}

void Library(const FolderItem& scratch) {
  const int photos = Count(50000, 500);
  const FolderItem file = scratch.Child("AlbumData.xml");
  (void)WriteFileAtomically(file, LibraryOf(photos));
  StandardErrorLog log;
  SystemRandom random(1);
  const auto start = Clock::now();
  ThreadediPhotoReader reader(log, random);
  if (!reader.ReadXML(file)) GiveUp("the library could not be read");
  Row("a library of 50,000 photos", Since(start), "2000 ms", 2000, 1);
}

/// How long the cores go on with a folder that was left.
void Leaving(const FolderItem& scratch, const std::string& photo) {
  const FolderItem folder = scratch.Child("left");
  (void)folder.CreateAsFolder();
  for (int i = 0; i < 16; ++i) {
    (void)FolderItem(photo).CopyFileTo(folder.Child(std::to_string(i) + ".jpg"));
  }
  double longest = 0;
  for (int round = 0; round < Count(10, 1); ++round) {
    auto getter = std::make_unique<browserThumbnailGetter>(std::make_shared<ThumbnailMaker>(
        ThumbnailCache(scratch.Child("left-cache-" + std::to_string(round)), "bench")));
    for (int i = 0; i < 16; ++i) {
      getter->item.push_back(
          std::make_shared<browserItem>(folder.Child(std::to_string(i) + ".jpg")));
    }
    getter->Run();
    std::this_thread::sleep_for(std::chrono::milliseconds(7 * round + 5));
    const auto start = Clock::now();
    // Waits for its threads.
    getter.reset();
    longest = std::max(longest, Since(start));
  }
  Row("work ends after a folder is left, slowest of 10", longest, "50 ms", 50, 1);
}

void Thumbnails(const FolderItem& scratch, const std::string& photo) {
  const int photos = Count(96, 8);
  const FolderItem folder = scratch.Child("photos");
  (void)folder.CreateAsFolder();
  for (int i = 0; i < photos; ++i) {
    (void)FolderItem(photo).CopyFileTo(folder.Child(std::to_string(i) + ".jpg"));
  }
  const auto run = [&](View& view, double& screenful) {
    const auto start = Clock::now();
    bool finished = false;
    view.browser.FinishedUpdatingThumbnails = [&] { finished = true; };
    view.browser.DisplayItem(folder);
    HandleUntil("the photos", [&] { return view.browser.Count() == photos; });
    view.browser.IconView().viewport()->repaint();
    const int end = view.browser.IconView().Grid().EndInView();
    HandleUntil("thumbnails in view", [&] {
      for (int i = 0; i < end; ++i) {
        if (view.browser.Rows().Item(i)->image.isNull()) return false;
      }
      return true;
    });
    screenful = Since(start);
    HandleUntil("all thumbnails", [&] { return finished; });
    return photos * 1000.0 / Since(start);
  };
  double cold = 0;
  double warm = 0;
  double screenful = 0;
  double ignored = 0;
  double vips = 0;
  const int rounds = Count(3, 1);
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  for (int round = 0; round < rounds; ++round) {
    const FolderItem cache = scratch.Child("cache-" + std::to_string(round));
    double first = 0;
    {
      View view(cache);
      cold = std::max(cold, run(view, first));
      screenful = round == 0 ? first : std::min(screenful, first);
    }
    {
      View view(cache);
      warm = std::max(warm, run(view, ignored));
    }
    const FolderItem out = scratch.Child("vips-" + std::to_string(round));
    (void)out.CreateAsFolder();
    const auto start = Clock::now();
    RunProgram({"sh", "-c",
                "ls '" + folder.ShellPath() + "'/*.jpg | xargs -P " + std::to_string(cores) +
                    " -n " + std::to_string(std::max(1, photos / static_cast<int>(cores))) +
                    " vipsthumbnail -s 256 -o '" + out.ShellPath() + "/%s.png'"});
    vips = std::max(vips, photos * 1000.0 / Since(start));
  }
  Row("first screenful of cold thumbnails, 12 megapixels", screenful, "700 ms", 700, 1);
  // Rates: the time for each says the same the way round that a table of times has it.
  Row("ms for each cold thumbnail", 1000 / cold, "vipsthumbnail", 1000 / vips, 1);
  Row("ms for each warm thumbnail", 1000 / warm, "a tenth of vipsthumbnail", 100 / vips, 1);
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  bench::TakeSmoke(argc, argv);
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: browser-table [--smoke] PHOTO FOLDER\n");
    return 2;
  }
  SetIconFolder(otherSharedComponents::ResourcesFolder().Child("Icons"));
  bench::Heading();
  bench::Listings(FolderItem(argv[2]));
  bench::Library(FolderItem(argv[2]));
  bench::Leaving(FolderItem(argv[2]), argv[1]);
  bench::Thumbnails(FolderItem(argv[2]), argv[1]);
  ShutDownCodecs();
  return 0;
}
