#pragma once

#include "platform/Files.h"
#include "support/FaultPlan.h"

namespace corvanta {

// The real file operations, counted and stopped by a fault plan.
class FaultFiles : public Files {
 public:
  explicit FaultFiles(FaultPlan& plan) : plan_(plan) {}

  void Replace(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  void CreateFolder(const std::string& path) override;
  void WriteAtomically(const std::string& path, std::string_view text) override;
  void WriteNew(const std::string& path, std::string_view text) override;

 private:
  void Count(const std::string& path);

  FaultPlan& plan_;
  SystemFiles files_;
};

}  // namespace corvanta
