#pragma once

namespace ktpnaips::Enc64 {

/// Decodes blocks of 16 Base64 digits at a time, where the processor has the instructions for it,
/// up to the first block with another character or the last 23 characters. Returns where it ends
/// and moves `to` behind the bytes, of which there must be room for 3 for each 4 characters.
const char* decodeBlocks(const char* at, const char* end, char*& to);

}  // namespace ktpnaips::Enc64
