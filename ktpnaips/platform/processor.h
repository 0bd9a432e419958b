#pragma once

namespace ktpnaips::processor {

/// True when the processor has the instructions of SSE4.1 and those before them.
bool hasSse41();

}  // namespace ktpnaips::processor
