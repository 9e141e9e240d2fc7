#pragma once

namespace corvanta::inline controls {

// Lets assistive tools hear the chosen day of every calendar as its value. Once is enough.
void TellCalendarRole();

}  // namespace corvanta::inline controls
