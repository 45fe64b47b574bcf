#pragma once

#include <memory>

namespace lumrake {

/// Makes a document window and launches it with these arguments. One that opens belongs to its frame in the main window
/// from then on; one that does not is let go at once, and gives null.
template <class Form, class... Arguments> Form* OpenWindow(const Arguments&... arguments) {
    auto child = std::make_unique<Form>();
    return child->Launch(arguments...) ? child.release() : nullptr;
}

} // namespace lumrake
