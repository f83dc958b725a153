// SPDX-License-Identifier: MIT
#include "app/commands/Commands.h"

#include <QAction>
#include <QKeySequence>
#include <QScopedValueRollback>

#include "app/core/GlobalApplicationSpecificProperties.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

std::string TextOf(const Command& command) {
  if (command.Caption) return command.Caption();
  if (command.Text == nullptr) return {};
  return WithPlaceholders(
      command.Text->Text(),
      {{"<ApplicationName>", GlobalApplicationSpecificProperties::ApplicationName.Text()}});
}

}  // namespace

Commands::Commands(const Panes& panes) : panes_(panes) {
  later_.setSingleShot(true);
  later_.setInterval(0);
  QObject::connect(&later_, &QTimer::timeout, [this] { Refresh(); });
}

Commands::~Commands() = default;

QAction& Commands::Action(const std::string& name) {
  Entry& entry = entries_[name];
  if (!entry.action) {
    entry.action = std::make_unique<QAction>();
    entry.action->setObjectName(QString::fromStdString(name));
    QObject::connect(entry.action.get(), &QAction::triggered, [this, name] { Run(name); });
  }
  return *entry.action;
}

void Commands::Add(std::vector<Command> commands) {
  for (Command& command : commands) {
    QAction& action = Action(command.Name);
    if (*command.Shortcut != '\0') {
      action.setShortcuts(QKeySequence::listFromString(QString::fromLatin1(command.Shortcut)));
    }
    if (command.Checked) action.setCheckable(true);
    action.setText(ToQString(TextOf(command)));
    entries_[command.Name].commands.push_back(std::move(command));
  }
}

const Command* Commands::InView(const Entry& entry) const {
  for (const Command& command : entry.commands) {
    if ((command.Where & (1 << panes_.Pane())) != 0) return &command;
  }
  return nullptr;
}

bool Commands::CanRun(const Command& command) const {
  if (!command.WhileCropping && Cropping && Cropping()) return false;
  return !command.Enabled || command.Enabled();
}

bool Commands::Run(const std::string& name) {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) return false;
  const Command* command = InView(entry->second);
  if (command == nullptr || !command->Run || !CanRun(*command)) return false;
  if (!command->WhileBusy && Busy && Busy()) return false;
  command->Run();
  Changed();
  return true;
}

void Commands::Refresh() {
  later_.stop();
  for (auto& [name, entry] : entries_) {
    if (entry.commands.empty()) continue;
    const Command* command = InView(entry);
    const Command& shown = command == nullptr ? entry.commands.front() : *command;
    entry.action->setEnabled(command != nullptr && CanRun(*command));
    // A click on the action has put its own mark, so each is set anew.
    if (shown.Checked) entry.action->setChecked(shown.Checked());
    entry.action->setText(ToQString(command == nullptr && shown.Caption && shown.Text != nullptr
                                        ? shown.Text->Text()
                                        : TextOf(shown)));
  }
  Refreshed();
}

void Commands::RefreshForMenu() {
  const QScopedValueRollback opens(menuOpens_, true);
  Refresh();
}

}  // namespace brivolant
