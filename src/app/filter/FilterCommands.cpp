#include "app/filter/FilterCommands.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/ViewCommand.h"
#include "app/filter/FilterPanel.h"
#include "app/filter/FrmFilter.h"
#include "app/filter/FrmTextFilter.h"
#include "controls/QtText.h"
#include "ledger/register/FilterChoice.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "store/sql/Connection.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

namespace corvanta::inline app {
namespace {

std::size_t PlaceOf(FilterKind kind) {
  return static_cast<std::size_t>(kind);
}

// The kind of a piece that is a list.
std::optional<FilterKind> KindOf(FilterPiece piece) {
  const auto place = static_cast<std::size_t>(piece);
  if (place >= kFilterKinds.size()) return std::nullopt;
  return kFilterKinds.at(place);
}

QString Joined(const std::vector<std::string>& names) {
  constexpr int kMaxShown = 30;  // what a tool tip can still show
  QStringList lines;
  for (const std::string& name : names) {
    if (lines.size() == kMaxShown) {
      lines.append(
          FilterCommands::tr("and %1 more").arg(static_cast<int>(names.size()) - kMaxShown));
      break;
    }
    lines.append(ToQt(name));
  }
  return lines.join(QStringLiteral(", "));
}

}  // namespace

FilterCommands::FilterCommands(const ViewPlace& place, const std::vector<MainView*>& views,
                               QWidget* parent)
    : QObject(parent), place_(place), panel_(new FilterPanel(parent)) {
  const MainActions& actions = place_.actions;
  place_.On(actions.mnuFilterAccount, this, [this] { Choose(FilterPiece::Account); });
  place_.On(actions.mnuFilterCategory, this, [this] { Choose(FilterPiece::Category); });
  place_.On(actions.mnuFilterPayee, this, [this] { Choose(FilterPiece::Payee); });
  place_.On(actions.mnuFilterInvestment, this, [this] { Choose(FilterPiece::Investment); });
  place_.On(actions.mnuFilterKeyword, this, [this] { Choose(FilterPiece::Keyword); });
  place_.On(actions.mnuFilterText, this, [this] { Choose(FilterPiece::Text); });
  place_.On(actions.mnuFilterNone, this, [this] { Clear(); });
  connect(panel_, &FilterPanel::Chosen, this,
          [this](FilterPiece piece) { place_.host.Guard([this, piece] { Choose(piece); }); });
  connect(panel_, &FilterPanel::Cleared, this, [this] { place_.host.Guard([this] { Clear(); }); });
  for (MainView* view : views) {
    FilterStrip* strip = view->Strip();
    if (strip == nullptr) continue;
    strips_.push_back(strip);
    Connect(*strip);
  }
}

void FilterCommands::Connect(FilterStrip& strip) {
  connect(&strip, &FilterStrip::Asked, this,
          [this, button = strip.Button()] { panel_->Open(*button); });
  connect(&strip, &FilterStrip::Chosen, this, [this, &strip](FilterPiece piece) {
    if (piece == FilterPiece::Status) return ShowStatuses(strip);
    place_.host.Guard([this, piece] { Choose(piece); });
  });
  connect(&strip, &FilterStrip::Removed, this,
          [this](FilterPiece piece) { place_.host.Guard([this, piece] { Remove(piece); }); });
  connect(&strip, &FilterStrip::Cleared, this, [this] {
    place_.host.Guard([this] {
      Clear();
      ShowAllStatuses();
    });
  });
}

RowFilter FilterCommands::Existing(const RowFilter& filter) {
  if (filter.IsEmpty()) return filter;
  Connection& store = place_.session.Ledger().Store();
  if (filter == known_ && knownAt_ == store.Changes()) return filter;
  RowFilter existing = filter;
  for (const FilterKind kind : kFilterKinds) {
    std::vector<std::string>& names = names_.at(PlaceOf(kind));
    names.clear();
    if (!filter.IsSet(kind)) continue;
    const FilterChoice choice(store, kind, filter.Keys(kind));
    existing.SetKeys(kind, choice.Keys());
    names = choice.Names();
  }
  known_ = existing;
  knownAt_ = store.Changes();
  return existing;
}

void FilterCommands::Mark() {
  const bool isOpen = place_.session.IsOpen();
  const RowFilter filter = isOpen ? Existing(place_.host.Shown().rows) : RowFilter();
  FilterStrip::Texts texts;
  FilterStrip::Texts tips;
  for (const FilterKind kind : kFilterKinds) {
    if (!filter.IsSet(kind)) continue;
    const std::vector<std::string>& names = names_.at(PlaceOf(kind));
    texts.at(PlaceOf(kind)) = ToQt(FilterLabel(names));
    tips.at(PlaceOf(kind)) = Joined(names);
  }
  const auto text = static_cast<std::size_t>(FilterPiece::Text);
  if (filter.HasText()) {
    texts.at(text) = ToQt(FilterLabel({filter.Search().text}));
    tips.at(text) = ToQt(filter.Search().text);
  }
  const bool hasOthers = isOpen && place_.host.Shown().report.HasFilters();
  panel_->Show(texts, tips, hasOthers);
  const auto status = static_cast<std::size_t>(FilterPiece::Status);
  texts.at(status) = tips.at(status) = isOpen ? StatusText() : QString();
  for (FilterStrip* strip : strips_) strip->Show(texts, tips);
  const MainActions& actions = place_.actions;
  for (QAction* action :
       {actions.mnuFilterAccount, actions.mnuFilterCategory, actions.mnuFilterPayee,
        actions.mnuFilterInvestment, actions.mnuFilterKeyword, actions.mnuFilterText}) {
    action->setEnabled(isOpen);
  }
  actions.mnuFilterNone->setEnabled(!filter.IsEmpty() || hasOthers);
}

QString FilterCommands::StatusText() const {
  const StatusFilter statuses = place_.host.Shown().Filter();
  QStringList shown;
  if (statuses.uncleared) shown.append(tr("uncleared"));
  if (statuses.cleared) shown.append(tr("cleared"));
  if (statuses.reconciled) shown.append(tr("reconciled"));
  // None ticked shows all, as all ticked does.
  const qsizetype all = 3;
  return shown.size() == all ? QString() : shown.join(QStringLiteral(", "));
}

void FilterCommands::Choose(FilterPiece piece) {
  if (const auto kind = KindOf(piece)) return ChooseItems(*kind);
  ChooseText();
}

void FilterCommands::ShowStatuses(const FilterStrip& strip) {
  const MainActions& actions = place_.actions;
  auto* menu = new QMenu(&place_.window);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions({actions.mnuViewUnCleared, actions.mnuViewCleared, actions.mnuViewReconciled});
  menu->popup(strip.mapToGlobal(strip.PlaceBelow(FilterPiece::Status)));
}

void FilterCommands::ChooseItems(FilterKind kind) {
  RowFilter filter = place_.host.Shown().rows;
  const bool isOn = Settings(place_.platform.registry).IsOn(Setting::Closed);
  FilterChoice choice(place_.session.Ledger().Store(), kind, filter.Keys(kind),
                      isOn ? FilterChoice::Closed::Show : FilterChoice::Closed::Hide);
  FrmFilter dialog(choice, place_.platform.prompts, &place_.window);
  if (dialog.exec() != QDialog::Accepted) return;
  filter.SetList(kind, dialog.List());
  Apply(filter);
}

void FilterCommands::ChooseText() {
  RowFilter filter = place_.host.Shown().rows;
  FrmTextFilter dialog(filter.Search(), place_.platform.locale, place_.platform.prompts,
                       &place_.window);
  if (dialog.exec() != QDialog::Accepted) return;
  filter.SetSearch(dialog.Search());
  Apply(filter);
}

void FilterCommands::Remove(FilterPiece piece) {
  if (piece == FilterPiece::Status) return ShowAllStatuses();
  RowFilter filter = place_.host.Shown().rows;
  if (const auto kind = KindOf(piece)) {
    filter.SetKeys(*kind, {});
  } else {
    filter.SetSearch({});
  }
  Apply(filter);
}

void FilterCommands::Clear() {
  ViewCommand shown = place_.host.Shown();
  if (!shown.report.HasFilters()) return Apply(RowFilter());
  shown.rows = {};
  shown.report.DropFilters();
  place_.host.Show(shown);
  place_.host.FocusView();
}

void FilterCommands::ShowAllStatuses() {
  const MainActions& actions = place_.actions;
  if (StatusText().isEmpty()) return;
  for (QAction* tick :
       {actions.mnuViewUnCleared, actions.mnuViewCleared, actions.mnuViewReconciled}) {
    tick->setChecked(true);
  }
  place_.host.ApplyFilter();
  place_.host.FocusView();
}

void FilterCommands::Apply(const RowFilter& filter) {
  place_.host.ShowRows(filter);
  place_.host.FocusView();
}

}  // namespace corvanta::inline app
