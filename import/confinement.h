#pragma once

namespace lorelin {

// From here on the process takes little memory, writes no file, opens no connection, ends with its parent,
// and gains no rights.
// With `children`, programs that it starts may give themselves the right to write small ones.
void Confine(bool children);

// The process ends with an answer that says so when it computes for so long; each call begins anew, 0 ends
// the watch.
void GiveComputingTime(int seconds);

// Seconds that the process has computed.
[[nodiscard]] double ComputingTime();

}  // namespace lorelin
