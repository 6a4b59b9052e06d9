#pragma once

#include <memory>
#include <type_traits>

#include "faults/FaultyHost.h"
#include "host/Host.h"

/// One class for each interface of the host: every operation counts, then asks the real object.
namespace faults {

using host::Ref;
using host::Variant;

/// Wraps the object of an interface; specialised for each.
template <class I>
class Faulty;

template <class I, class... Known>
inline constexpr bool kIsOneOf = (std::is_same_v<I, Known> || ...);

/// The interfaces whose objects are wrapped wherever an operation answers one.
template <class I>
inline constexpr bool kWraps =
    kIsOneOf<I, host::IHostPropertySet, host::IHostObjectCopy, host::IHostPoint,
             host::IHostEnvelope, host::IHostLine, host::IHostFont, host::IHostColor,
             host::IHostTextSymbol, host::IHostFillSymbol, host::IHostLineSymbol,
             host::IHostGroupElement, host::IHostTextElement, host::IHostFilledElement,
             host::IHostApplication, host::IHostDocument, host::IHostActiveView, host::IHostDisplay,
             host::IHostStatusBar, host::IHostProgressAnimation,
             host::IHostDisplayTransformation> ||
    kIsOneOf<I, host::IHostScratchWorkspaceFactory, host::IHostWorkspaceFactory,
             host::IHostWorkspace, host::IHostTable, host::IHostCursor, host::IHostRow,
             host::IHostFields, host::IHostField, host::IHostQueryFilter, host::IHostIdentifier,
             host::IHostDatasetEnum, host::IHostDataset, host::IHostTableSort,
             host::IHostCommandBars, host::IHostCommandItem, host::CVNLayoutContext,
             host::CVNMapBook, host::MapSeriesManager, host::IHostIndexLayer,
             host::IHostElementContainer, host::CVNExpressionEngine>;

struct IsFaulty {
    virtual ~IsFaulty() = default;
};

template <class I>
Ref<I> Wrap(Faults& faults, Ref<I> real) {
    if (!real || dynamic_cast<const IsFaulty*>(real.get())) return real;
    return std::make_shared<Faulty<I>>(faults, std::move(real));
}

template <class I, class... More>
class Base : public I, public More..., public IsFaulty {
public:
    Base(Faults& faults, Ref<I> real) : faults_(faults), real_(std::move(real)) {}
    const Ref<I>& Real() const { return real_; }

protected:
    template <class T>
    T Pass(T value) const {
        return value;
    }
    template <class T>
    Ref<T> Pass(Ref<T> object) const {
        if constexpr (kWraps<T>)
            return Wrap(faults_, std::move(object));
        else
            return object;
    }
    template <class T>
    T& Also() const {
        return dynamic_cast<T&>(*real_);
    }
    /// The real row behind one that a wrapped table made.
    template <class T>
    static Ref<T> Unwrapped(const Ref<T>& object) {
        const auto* const faulty = dynamic_cast<const Faulty<T>*>(object.get());
        return faulty ? faulty->Real() : object;
    }

    Faults& faults_;
    Ref<I> real_;
};

#define FAULTY(I, ...)                                                              \
    template <>                                                                     \
    class Faulty<host::I> final : public Base<host::I __VA_OPT__(, ) __VA_ARGS__> { \
        static constexpr char kName[] = #I;                                         \
                                                                                    \
    public:                                                                         \
        using Base::Base;

#define ASK(R, Name, Params, Args, ...)      \
    R Name Params __VA_ARGS__ override {     \
        faults_.Tick(kName, #Name);          \
        return this->Pass(real_->Name Args); \
    }
#define TELL(Name, Params, Args)    \
    void Name Params override {     \
        faults_.Tick(kName, #Name); \
        real_->Name Args;           \
    }
#define GET(R, Name) ASK(R, Name, (), (), const)
#define MAKE(R, Name) ASK(R, Name, (), ())
#define SET(Name, T) TELL(Name, (T value), (std::forward<T>(value)))
#define COPIED_AS(I)                                                     \
    Ref<host::IHostObject> Copy() const override {                       \
        faults_.Tick(kName, "Copy");                                     \
        return Wrap<host::I>(faults_, host::As<host::I>(real_->Copy())); \
    }

// clang-format off

#define AS_GEOMETRY(I) COPIED_AS(I) GET(Ref<host::IHostEnvelope>, Bounds)

FAULTY(IHostPoint)
    AS_GEOMETRY(IHostPoint)
    GET(double, X) GET(double, Y) SET(SetX, double) SET(SetY, double)
};
FAULTY(IHostLine)
    AS_GEOMETRY(IHostLine)
    GET(Ref<host::IHostPoint>, StartPoint) GET(Ref<host::IHostPoint>, EndPoint)
    SET(SetStartPoint, const Ref<host::IHostPoint>&) SET(SetEndPoint, const Ref<host::IHostPoint>&)
};
FAULTY(IHostEnvelope)
    AS_GEOMETRY(IHostEnvelope)
    TELL(Shift, (double dx, double dy), (dx, dy))
    GET(Ref<host::IHostPoint>, Centre)
    GET(double, XMin) GET(double, YMin) GET(double, XMax) GET(double, YMax)
    GET(double, Width) GET(double, Height) SET(SetHeight, double)
    GET(Ref<host::IHostPoint>, TopLeft) GET(Ref<host::IHostPoint>, BottomLeft)
    GET(Ref<host::IHostPoint>, BottomRight)
    TELL(SetCoords, (double a, double b, double c, double d), (a, b, c, d))
};

FAULTY(IHostFont)
    COPIED_AS(IHostFont)
    GET(std::string, Name) SET(SetName, const std::string&)
    GET(double, Size) SET(SetSize, double) GET(bool, Bold) SET(SetBold, bool)
};
FAULTY(IHostColor)
    COPIED_AS(IHostColor)
    GET(std::uint32_t, RGB) SET(SetRGB, std::uint32_t)
    GET(bool, Transparent) SET(SetTransparent, bool)
};

#define AS_SYMBOL(I)                                                                              \
    COPIED_AS(I)                                                                                  \
    TELL(PrepareDevice, (host::DeviceContext device,                                              \
                         const Ref<host::IHostDisplayTransformation>& t), (device, t))            \
    SET(DrawGeometry, const Ref<host::IHostGeometry>&) TELL(ReleaseDevice, (), ())                \
    GET(Ref<host::IHostColor>, Color) SET(SetColor, const Ref<host::IHostColor>&)

FAULTY(IHostLineSymbol)
    AS_SYMBOL(IHostLineSymbol)
};
FAULTY(IHostFillSymbol)
    AS_SYMBOL(IHostFillSymbol)
    GET(Ref<host::IHostLineSymbol>, Outline) SET(SetOutline, const Ref<host::IHostLineSymbol>&)
};
FAULTY(IHostTextSymbol, host::IHostTextSteps)
    AS_SYMBOL(IHostTextSymbol)
    GET(Ref<host::IHostFont>, Font) SET(SetFont, const Ref<host::IHostFont>&)
    GET(double, Size) SET(SetSize, double)
    GET(std::int32_t, VerticalPlacement) SET(SetVerticalPlacement, std::int32_t)
    GET(std::int32_t, HorizontalPlacement) SET(SetHorizontalPlacement, std::int32_t)
    GET(double, Angle) SET(SetAngle, double)
    GET(std::string, Text) SET(SetText, const std::string&)
    ASK(host::TextExtent, MeasureText,
        (host::DeviceContext device, const Ref<host::IHostDisplayTransformation>& t,
         const std::string& text), (device, t, text))
    bool MeasureSteps(host::DeviceContext device, const Ref<host::IHostDisplayTransformation>& t,
                      const std::string& line, host::TextSteps& steps) override {
        faults_.Tick(kName, "MeasureSteps");
        return Also<host::IHostTextSteps>().MeasureSteps(device, t, line, steps);
    }
};

// clang-format on

}  // namespace faults
