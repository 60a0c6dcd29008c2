#pragma once

namespace korva {

/// Makes the process fit for files, ports and pipes that can fail. Call first in main.
///
/// A write into a pipe that nobody reads, or beyond the greatest size of a file, fails like any other one and
/// does not end the process. A standard stream that is closed is taken by one that fails whatever is done
/// with it, so that its number is never given to a file or a port, where a message would land else.
void PrepareProcess();

}  // namespace korva
