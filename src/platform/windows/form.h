#pragma once

#include <vector>

namespace vandrel {

class Control;

// A window with controls that take the display font.
class Form {
  public:
    virtual ~Form() = default;

    virtual std::vector<Control*> controls() = 0;
    // Called after the fonts of the controls have changed: sizes that depend on them must be set again.
    virtual void fontsChanged() {}
};

} // namespace vandrel
