#include "controls/CommandEdge.h"

#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "store/sql/FailureText.h"

#include <QtGlobal>

#include <exception>

namespace corvanta::inline controls {

bool RunCommand(Prompts& prompts, const std::function<void()>& command) {
  try {
    command();
    return true;
  } catch (const StoreError& error) {
    qWarning("Data file: %s [%s]", error.what(), error.Statement().c_str());
    prompts.Tell("Data File", FailureText(error), Icon::Warning);
  } catch (const PlatformError& error) {
    qWarning("%s", error.what());
    prompts.Tell("Corvanta Personal Finance", error.what(), Icon::Warning);
  } catch (const std::exception& error) {
    qWarning("Unexpected: %s", error.what());
    prompts.Tell("Application Error", FailureText(error), Icon::Error);
  }
  return false;
}

}  // namespace corvanta::inline controls
