#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Host.h"

/// Settings and shapes: plain values behind interfaces. Copies are deep where it counts, since the
/// component changes its own copies of sets and symbols during a run.
namespace texthost {

using host::Ref;

[[noreturn]] inline void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "texthost", text);
}

/// A deep copy of an object that may be none.
template <class T>
Ref<T> CopyOf(const Ref<T>& object) {
    return object ? host::As<T>(object->Copy()) : nullptr;
}

class PropertySet : public host::IHostPropertySet {
public:
    std::int32_t Count() const override { return static_cast<std::int32_t>(items_.names.size()); }
    host::Variant Item(const std::string& name) const override {
        if (const auto at = Find(name); at < items_.names.size()) return items_.values[at];
        throw host::Failure(host::kFailureNotFound, "PropertySet", "There is no \"" + name + "\".");
    }
    host::PropertyItems AllItems() const override { return items_; }
    void SetItem(const std::string& name, host::Variant value) override {
        if (const auto at = Find(name); at < items_.names.size()) {
            items_.values[at] = std::move(value);
        } else {
            items_.names.push_back(name);
            items_.values.push_back(std::move(value));
        }
    }
    void RemoveItem(const std::string& name) override {
        const auto at = static_cast<std::ptrdiff_t>(Find(name));
        if (at == Count()) return;
        items_.names.erase(items_.names.begin() + at);
        items_.values.erase(items_.values.begin() + at);
    }
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<PropertySet>();
        for (std::size_t i = 0; i < items_.names.size(); ++i) {
            auto value = items_.values[i];
            if (auto* const object = std::get_if<Ref<host::IHostObject>>(&value))
                if (const auto clonable = host::As<host::IHostClonable>(*object))
                    *object = clonable->Copy();
            copy->SetItem(items_.names[i], std::move(value));
        }
        return copy;
    }

private:
    std::size_t Find(const std::string& name) const {
        return static_cast<std::size_t>(std::ranges::find(items_.names, name) -
                                        items_.names.begin());
    }

    host::PropertyItems items_;
};

class ObjectCopy final : public host::IHostObjectCopy {
public:
    Ref<host::IHostObject> Copy(const Ref<host::IHostObject>& object) override {
        const auto clonable = host::As<host::IHostClonable>(object);
        return clonable ? clonable->Copy() : object;
    }
};

class Point;

class Envelope final : public host::IHostEnvelope {
public:
    Ref<host::IHostObject> Copy() const override { return Bounds(); }
    Ref<host::IHostEnvelope> Bounds() const override {
        auto copy = std::make_shared<Envelope>();
        copy->SetCoords(xmin_, ymin_, xmax_, ymax_);
        return copy;
    }
    void Shift(double dx, double dy) override {
        SetCoords(xmin_ + dx, ymin_ + dy, xmax_ + dx, ymax_ + dy);
    }
    double XMin() const override { return xmin_; }
    double YMin() const override { return ymin_; }
    double XMax() const override { return xmax_; }
    double YMax() const override { return ymax_; }
    double Width() const override { return xmax_ - xmin_; }
    double Height() const override { return ymax_ - ymin_; }
    void SetHeight(double height) override { ymax_ = ymin_ + height; }
    Ref<host::IHostPoint> Centre() const override;
    Ref<host::IHostPoint> TopLeft() const override;
    Ref<host::IHostPoint> BottomLeft() const override;
    Ref<host::IHostPoint> BottomRight() const override;
    void SetCoords(double xmin, double ymin, double xmax, double ymax) override {
        xmin_ = xmin;
        ymin_ = ymin;
        xmax_ = xmax;
        ymax_ = ymax;
    }

private:
    double xmin_ = 0;
    double ymin_ = 0;
    double xmax_ = 0;
    double ymax_ = 0;
};

class Point final : public host::IHostPoint {
public:
    explicit Point(double x = 0, double y = 0) : x_(x), y_(y) {}
    Ref<host::IHostObject> Copy() const override { return std::make_shared<Point>(x_, y_); }
    Ref<host::IHostEnvelope> Bounds() const override {
        auto bounds = std::make_shared<Envelope>();
        bounds->SetCoords(x_, y_, x_, y_);
        return bounds;
    }
    double X() const override { return x_; }
    double Y() const override { return y_; }
    void SetX(double x) override { x_ = x; }
    void SetY(double y) override { y_ = y; }

private:
    double x_;
    double y_;
};

inline Ref<host::IHostPoint> Envelope::Centre() const {
    return std::make_shared<Point>((xmin_ + xmax_) / 2, (ymin_ + ymax_) / 2);
}
inline Ref<host::IHostPoint> Envelope::TopLeft() const {
    return std::make_shared<Point>(xmin_, ymax_);
}
inline Ref<host::IHostPoint> Envelope::BottomLeft() const {
    return std::make_shared<Point>(xmin_, ymin_);
}
inline Ref<host::IHostPoint> Envelope::BottomRight() const {
    return std::make_shared<Point>(xmax_, ymin_);
}

class Line final : public host::IHostLine {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<Line>();
        copy->SetStartPoint(start_);
        copy->SetEndPoint(end_);
        return copy;
    }
    Ref<host::IHostEnvelope> Bounds() const override {
        auto bounds = std::make_shared<Envelope>();
        bounds->SetCoords(std::min(start_->X(), end_->X()), std::min(start_->Y(), end_->Y()),
                          std::max(start_->X(), end_->X()), std::max(start_->Y(), end_->Y()));
        return bounds;
    }
    Ref<host::IHostPoint> StartPoint() const override { return start_; }
    Ref<host::IHostPoint> EndPoint() const override { return end_; }
    void SetStartPoint(const Ref<host::IHostPoint>& point) override { start_ = CopyOf(point); }
    void SetEndPoint(const Ref<host::IHostPoint>& point) override { end_ = CopyOf(point); }

private:
    Ref<host::IHostPoint> start_ = std::make_shared<Point>();
    Ref<host::IHostPoint> end_ = std::make_shared<Point>();
};

}  // namespace texthost
