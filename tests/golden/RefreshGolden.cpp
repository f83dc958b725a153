// SPDX-License-Identifier: MIT
// Writes the golden pictures anew, for whoever has changed an effect on purpose and looked at what
// came out: refresh-golden FOLDER [EFFECT-CLASS].
#include <QGuiApplication>
#include <array>
#include <cstdio>

#include "app/core/ApplicationServices.h"
#include "golden/Golden.h"
#include "platform/codecs/ImageCodecs.h"

int main(int argc, char** argv) {
  using namespace brivolant;
  using namespace brivolant::test;
  const QGuiApplication application(argc, argv);
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: refresh-golden FOLDER [EFFECT-CLASS]\n");
    return 2;
  }
  const QuietServices quiet;
  const FolderItem folder(argv[1]);
  auto source = ImageSource::Open(folder.Child("input.png"));
  auto input = source ? (*source)->Decode(0) : Expected<DecodedImage>::Failure(source.error);
  if (!input) {
    std::fprintf(stderr, "%s\n", input.error.c_str());
    return 1;
  }
  for (const GoldenRender& render : RenderGolden(input->Pixels, quiet.All())) {
    if (argc == 3 && render.name != argv[2]) continue;
    const std::array<EncodeImage, 1> image{{{render.picture, 1}}};
    const std::string error =
        EncodeImageFile(folder.Child(render.name + ".png"), "public.png", image);
    if (!error.empty()) {
      std::fprintf(stderr, "%s\n", error.c_str());
      return 1;
    }
    std::printf("%s\n", render.name.c_str());
  }
  return 0;
}
