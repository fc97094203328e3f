#pragma once

#include <memory>

#include "platform/old_formats/decoder.h"

namespace Morvane {

std::unique_ptr<Decoder> MakeWmfDecoder();

}  // namespace Morvane
