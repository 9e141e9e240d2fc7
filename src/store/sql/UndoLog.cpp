#include "store/sql/UndoLog.h"

#include "store/sql/engine/ConnectionImpl.h"
#include "store/sql/engine/UndoTables.h"

#include <deque>
#include <utility>

namespace corvanta::inline sql {
namespace {

constexpr std::int64_t kMaxRows = 1000000;
constexpr const char* kUnnamed = "Change";

// The rows of the log that belong together.
struct Entry {
  std::string name;
  std::int64_t first = 0;
  std::int64_t last = 0;
};

using Entries = std::deque<Entry>;

}  // namespace

class UndoLog::Impl : public ConnectionWatch {
 public:
  Impl(Connection::Impl& store, std::vector<std::string> tables)
      : store_(&store), rows_(std::move(tables)) {}

  ~Impl() override {
    // One that was never started may outlive the connection unnoticed.
    if (!started_) return;
    if (store_->Watch() == this) store_->SetWatch(nullptr);
    try {
      rows_.Close();
    } catch (const StoreError&) {
      // The triggers go with the connection at the latest.
    }
  }

  void Start() {
    if (started_ || store_ == nullptr) return;
    rows_.Open(*store_);
    store_->SetWatch(this);
    started_ = true;
  }

  void BeginStep(std::string name) {
    if (level_++ == 0) name_ = std::move(name);
  }

  void EndStep() {
    if (--level_ > 0 || !started_) return;
    if (store_->Depth() > 0) {
      // Whether anything comes of it is known at the end of the transaction.
      if (waiting_.empty()) waiting_ = name_;
      return;
    }
    Collect(name_);
  }

  // The rows that were logged since the last step become one.
  void Collect(const std::string& name) {
    if (!rows_.IsOpen()) return;
    const std::int64_t last = rows_.Last();
    if (last <= last_) return;
    for (const Entry& entry : redo_) rows_.Forget(entry.first, entry.last);
    redo_.clear();
    undo_.push_back({name, last_ + 1, last});
    last_ = last;
    Trim();
    Notify();
  }

  void Trim() {
    std::int64_t rows = 0;
    for (const Entry& entry : undo_) rows += entry.last - entry.first + 1;
    while (rows > kMaxRows && undo_.size() > 1) {
      const Entry& oldest = undo_.front();
      rows -= oldest.last - oldest.first + 1;
      rows_.Forget(oldest.first, oldest.last);
      undo_.pop_front();
    }
  }

  // Takes the latest step of `from` back. The triggers log that as well, and what they log is the
  // step that goes to the other side.
  void Move(Entries& from, Entries& to) {
    if (!started_ || from.empty() || level_ > 0 || store_->Depth() > 0) return;
    const Entry entry = from.back();
    const int depth = store_->BeginTransaction();
    try {
      rows_.Revert(entry.first, entry.last);
      rows_.Forget(entry.first, entry.last);
      // Told with the commit, before any listener looks at the steps.
      finish_ = [this, &from, &to, entry, last = rows_.Last()] {
        from.pop_back();
        if (last > last_) to.push_back({entry.name, last_ + 1, last});
        last_ = last;
      };
      store_->Changed();
      store_->Commit(depth);
    } catch (...) {
      finish_ = nullptr;
      store_->Rollback(depth);
      throw;
    }
    Notify();
  }

  // The rows that the latest step of `from` has touched.
  [[nodiscard]] std::vector<std::int64_t> Keys(const Entries& from, std::string_view table) {
    if (!started_ || from.empty()) return {};
    return rows_.Keys(table, from.back().first, from.back().last);
  }

  void Clear() {
    if (undo_.empty() && redo_.empty()) return;
    rows_.Forget(0, last_);
    last_ = rows_.Last();
    undo_.clear();
    redo_.clear();
    Notify();
  }

  void AfterCommit() override {
    if (finish_) {
      std::exchange(finish_, nullptr)();
    } else if (level_ == 0) {
      const std::string name = std::exchange(waiting_, {});
      Collect(name.empty() ? kUnnamed : name);
    }
  }

  void AfterRollback() override { waiting_.clear(); }

  void BeforeDefinition() override {
    rows_.Close();
    undo_.clear();
    redo_.clear();
    last_ = 0;
  }

  void AfterDefinition() override {
    rows_.Open(*store_);
    Notify();
  }

  void Closing() override {
    rows_.Release();
    undo_.clear();
    redo_.clear();
    started_ = false;
    store_ = nullptr;
  }

  void Notify() {
    for (const auto& notice : notices_) notice();
  }

  [[nodiscard]] Entries& Undone() { return redo_; }
  [[nodiscard]] Entries& Done() { return undo_; }
  [[nodiscard]] bool IsStarted() const { return started_; }
  void AddNotice(std::function<void()> notice) { notices_.push_back(std::move(notice)); }

 private:
  Connection::Impl* store_;
  UndoTables rows_;
  Entries undo_;
  Entries redo_;
  std::string name_;
  std::string waiting_;  // a step that ended inside a transaction
  std::function<void()> finish_;
  std::vector<std::function<void()>> notices_;
  std::int64_t last_ = 0;  // the latest row that belongs to a step
  int level_ = 0;
  bool started_ = false;
};

UndoLog::UndoLog(Connection& connection, std::vector<std::string> tables)
    : impl_(std::make_unique<Impl>(*connection.impl_, std::move(tables))) {}
UndoLog::~UndoLog() = default;

void UndoLog::Start() {
  impl_->Start();
}
bool UndoLog::IsStarted() const {
  return impl_->IsStarted();
}

UndoLog::Step UndoLog::Begin(std::string name) {
  impl_->BeginStep(std::move(name));
  return Step(*this);
}

bool UndoLog::CanUndo() const {
  return !impl_->Done().empty();
}
bool UndoLog::CanRedo() const {
  return !impl_->Undone().empty();
}
std::string UndoLog::UndoName() const {
  return CanUndo() ? impl_->Done().back().name : std::string();
}
std::string UndoLog::RedoName() const {
  return CanRedo() ? impl_->Undone().back().name : std::string();
}

std::vector<std::int64_t> UndoLog::UndoKeys(std::string_view table) const {
  return impl_->Keys(impl_->Done(), table);
}
std::vector<std::int64_t> UndoLog::RedoKeys(std::string_view table) const {
  return impl_->Keys(impl_->Undone(), table);
}

void UndoLog::Undo() {
  impl_->Move(impl_->Done(), impl_->Undone());
}
void UndoLog::Redo() {
  impl_->Move(impl_->Undone(), impl_->Done());
}
void UndoLog::Clear() {
  impl_->Clear();
}
void UndoLog::OnChange(std::function<void()> notice) {
  impl_->AddNotice(std::move(notice));
}

UndoLog::Step::Step(Step&& other) noexcept : log_(std::exchange(other.log_, nullptr)) {}

UndoLog::Step::~Step() {
  if (log_ == nullptr) return;
  try {
    log_->impl_->EndStep();
  } catch (const StoreError&) {
    // The change itself is on disk; without memory for it the step is not offered.
  }
}

}  // namespace corvanta::inline sql
