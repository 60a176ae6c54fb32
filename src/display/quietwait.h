// Waiting in the middle of a roll.
#pragma once

namespace tarnwick {

/// Returns after `milliseconds`. Meanwhile windows are drawn and sounds go on, but mouse and keys wait, and no window
/// can be closed.
void WaitQuietly(int milliseconds);

}  // namespace tarnwick
