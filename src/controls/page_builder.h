// PageBuilder: declares the controls of one page, a line each.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "controls/form.h"

namespace counter {

// A control and the captioned frame that only wraps it.
struct Framed {
    Control& Frame;
    Control& Inner;
};

// Elements of an array of controls by index; those that the view doesn't have are null.
template <std::size_t N>
struct ControlArray {
    std::array<Control*, N> Elements{};

    Control& operator[](int index) const { return *Elements[static_cast<std::size_t>(index)]; }
    bool Has(int index) const {
        return index >= 0 && index < static_cast<int>(N) && Elements[static_cast<std::size_t>(index)];
    }
};

template <std::size_t N>
struct FramedArray {
    ControlArray<N> Frame;
    ControlArray<N> Inner;
};

class PageBuilder {
  public:
    // The number that helps with a control, by its name without "[index]".
    using HelpNumbers = int (*)(std::string_view name);

    PageBuilder(Form& form, int tab, HelpNumbers help) : form_(form), tab_(tab), help_(help) {}

    // A control inside `container`; null: on the page itself.
    Control& Add(ControlKind kind, Control* container, std::string_view name, std::string_view caption = {},
                 int index = kSingle);
    // The same within a frame of its own that takes the caption: "cboBaudRate" is in "fraBaudRate".
    Framed Wrap(ControlKind kind, Control* container, std::string_view name, std::string_view caption,
                int index = kSingle);

    // Elements first..last on the page itself. "#" in the caption of an array means the index.
    template <std::size_t N>
    ControlArray<N> AddRange(ControlKind kind, int first, int last, std::string_view name,
                             std::string_view caption) {
        ControlArray<N> array;
        for (int i = first; i <= last; ++i)
            Element(array, i) = &Add(kind, nullptr, name, Numbered(caption, i), i);
        return array;
    }
    // An element inside each container that there is, with its index.
    template <std::size_t N>
    ControlArray<N> AddEach(ControlKind kind, const ControlArray<N>& containers, std::string_view name,
                            std::string_view caption = {}) {
        ControlArray<N> array;
        for (int i = 0; i < static_cast<int>(N); ++i) {
            if (containers.Has(i))
                Element(array, i) = &Add(kind, &containers[i], name, Numbered(caption, i), i);
        }
        return array;
    }
    template <std::size_t N>
    FramedArray<N> WrapEach(ControlKind kind, const ControlArray<N>& containers, std::string_view name,
                            std::string_view caption) {
        FramedArray<N> array;
        for (int i = 0; i < static_cast<int>(N); ++i) {
            if (!containers.Has(i)) continue;
            Framed pair = Wrap(kind, &containers[i], name, Numbered(caption, i), i);
            Element(array.Frame, i) = &pair.Frame;
            Element(array.Inner, i) = &pair.Inner;
        }
        return array;
    }

  private:
    template <std::size_t N>
    static Control*& Element(ControlArray<N>& array, int index) {
        return array.Elements[static_cast<std::size_t>(index)];
    }

    static std::string Numbered(std::string_view caption, int index);

    Form& form_;
    int tab_;
    HelpNumbers help_;
};

}  // namespace counter
