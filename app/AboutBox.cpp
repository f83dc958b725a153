// SPDX-License-Identifier: MIT
#include "app/AboutBox.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "app/core/GlobalApplicationSpecificProperties.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkStaticText.h"

namespace brivolant {
namespace {

using namespace GlobalApplicationSpecificProperties;

constexpr int kPicture = 96;
constexpr int kMargin = 32;
constexpr QSize kSize{400, 320};

}  // namespace

AboutBox::AboutBox(QWidget* parent) : ifkWindow(parent, Qt::Dialog) {
  setWindowTitle(ToQString(ApplicationName.Text()));
  setFixedSize(kSize);
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(8);
  const auto line = [&](const QString& text) {
    auto* label = new QLabel(text, content);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    column->addWidget(label);
    return label;
  };
  QLabel* picture = line({});
  picture->setPixmap(SvgPixmap(QStringLiteral("brivolant-photos"), QSize(kPicture, kPicture),
                               devicePixelRatioF(), Qt::black));
  QLabel* name = line(ToQString(ApplicationName.Text()));
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  name->setFont(large);
  line(VersionLine());
  column->addStretch();
  line(Shown(kDescription));
  line(Shown(kLicense));
  auto* link = new ifkStaticText(content, ToQString(URLApplicationWebPage.Text()));
  link->URL(ToQString(URLApplicationWebPage.Text()));
  link->Alignment = Qt::AlignCenter;
  column->addWidget(link, 0, Qt::AlignHCenter);
  status_ = line({});
  status_->hide();
  setCentralWidget(content);
  content->setFocusPolicy(Qt::StrongFocus);
  content->setFocus();
}

QString AboutBox::VersionLine() const {
  return Shown(kVersion) + QLatin1Char(' ') + ToQString(VersionText()) + QStringLiteral(" (") +
         QString::number(ApplicationVersion().NonRelease) + QLatin1Char(')');
}

void AboutBox::UseAsOpeningScreen() {
  setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  status_->setText(ToQString(
      WithPlaceholders(kProgressLoading.Text(), {{"<ApplicationName>", ApplicationName.Text()}})));
  status_->show();
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  move(screen.center() - rect().center());
  show();
}

void AboutBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
}

}  // namespace brivolant
