#pragma once

#include "Elements.h"

/// A map book of one volume, and the frames on its pages that show the sheets of a map series.
namespace texthost {

/// Names the squares of a map: rows and columns count from 1.
class IndexGrid final : public host::IHostIndexGrid {
public:
    IndexGrid(std::vector<std::string> rows, std::vector<std::string> columns, bool visible = true)
        : rows_(std::move(rows)), columns_(std::move(columns)), visible_(visible) {}
    bool Visible() const override { return visible_; }
    std::int32_t RowCount() const override { return static_cast<std::int32_t>(rows_.size()); }
    std::int32_t ColumnCount() const override { return static_cast<std::int32_t>(columns_.size()); }
    std::string RowLabel(std::int32_t index) const override {
        return rows_.at(static_cast<std::size_t>(index) - 1);
    }
    std::string ColumnLabel(std::int32_t index) const override {
        return columns_.at(static_cast<std::size_t>(index) - 1);
    }

private:
    std::vector<std::string> rows_;
    std::vector<std::string> columns_;
    bool visible_;
};

/// A map on a page. In a series it shows one sheet after another, each a row of the index layer.
class MapFrame final : public Element<host::IHostMapFrame>,
                       public host::IHostMapGrids,
                       public host::IHostIndexLayer {
public:
    using Grids = std::vector<Ref<host::IHostMapGrid>>;

    explicit MapFrame(const std::string& name, Ref<host::IHostTable> indexLayer = nullptr,
                      Grids grids = {})
        : indexLayer_(std::move(indexLayer)), grids_(std::move(grids)) {
        SetName(name);
    }
    Ref<host::IHostTable> Table() const override { return indexLayer_; }
    std::int32_t Count() const override { return static_cast<std::int32_t>(grids_.size()); }
    Ref<host::IHostMapGrid> Item(std::int32_t index) const override {
        return grids_.at(static_cast<std::size_t>(index));
    }
    void MeasureBounds(const Ref<host::IHostDisplay>&, const Ref<host::IHostEnvelope>&) override {}

private:
    Ref<host::IHostTable> indexLayer_;
    Grids grids_;
};

/// The first sheet of a series is page 1 of the series, wherever it stands in the book.
class MapSeries final : public host::MapSeriesManager {
public:
    bool IsSeriesFrame(const Ref<host::IHostMapFrame>& frame) override {
        return HasIndexLayer(frame);
    }
    bool HasIndexLayer(const Ref<host::IHostMapFrame>& frame) override {
        const auto layer = host::As<host::IHostIndexLayer>(frame);
        return layer && layer->Table();
    }
    void ClearFrame() override { layer_.reset(); }
    void SetFrame(const Ref<host::IHostMapFrame>& frame) override {
        layer_ = host::As<host::IHostIndexLayer>(frame);
    }
    Ref<host::IHostIndexLayer> IndexLayer() override { return layer_; }
    host::Variant FirstPageNumber() override { return std::int32_t{1}; }
    Ref<host::IHostRow> PageFeature(std::int32_t page) override {
        const auto sheets = layer_->Table()->Search(nullptr, false);
        auto sheet = sheets->NextRow();
        for (; sheet && page > 1; --page) sheet = sheets->NextRow();
        return sheet;
    }

private:
    Ref<host::IHostIndexLayer> layer_;
};

/// The elements of a template, from the lowest up.
class Layout final : public host::IHostElementContainer {
public:
    explicit Layout(std::vector<Ref<host::IHostElement>> elements)
        : elements_(std::move(elements)) {}
    void Reset() override { next_ = 0; }
    Ref<host::IHostElement> Next() override {
        return next_ < elements_.size() ? elements_[next_++] : nullptr;
    }

private:
    std::vector<Ref<host::IHostElement>> elements_;
    std::size_t next_ = 0;
};

struct Template {
    std::string key;
    std::vector<Ref<host::IHostElement>> elements;
};

struct Section {
    std::string key;
    std::int32_t startPage = 1;
    std::vector<std::string> pages;  ///< Each the key of a template, "$" and a number.
    std::vector<Template> templates;
};

/// Keys serve as names, too.
class MapBook final : public host::CVNMapBook, public host::CVNLayoutContext {
public:
    MapBook() = default;
    MapBook(std::vector<Section> sections, std::string currentTemplate)
        : sections_(std::move(sections)), currentTemplate_(std::move(currentTemplate)) {}

    host::Variant CurrentTemplateKey() override { return currentTemplate_; }
    std::string TemplateSection(const std::string& key) override {
        for (const auto& section : sections_)
            for (const auto& one : section.templates)
                if (one.key == key) return section.key;
        Fail("There is no template \"" + key + "\".");
    }
    std::string SectionBook(const std::string& key) override {
        Find(key);
        return "book";
    }
    std::vector<std::string> SectionKeys(const std::string&) override { return KeysOf(sections_); }
    std::string SectionName(const std::string& key) override { return Find(key).key; }
    std::vector<std::string> TemplateKeys(const std::string& sectionKey) override {
        return KeysOf(Find(sectionKey).templates);
    }
    std::string TemplateName(const std::string& key) override { return key; }
    Ref<host::IHostObject> TemplateLayout(const std::string& key) override {
        for (const auto& one : Find(TemplateSection(key)).templates)
            if (one.key == key) return std::make_shared<Layout>(one.elements);
        return nullptr;
    }
    host::Variant SectionStartPage(const std::string& key) override { return Find(key).startPage; }
    std::vector<std::string> SectionPages(const std::string& key) override {
        return Find(key).pages;
    }

private:
    const Section& Find(const std::string& key) const {
        for (const auto& section : sections_)
            if (section.key == key) return section;
        Fail("There is no section \"" + key + "\".");
    }
    template <class Items>
    static std::vector<std::string> KeysOf(const Items& items) {
        std::vector<std::string> keys;
        for (const auto& item : items) keys.push_back(item.key);
        return keys;
    }

    std::vector<Section> sections_;
    std::string currentTemplate_;
};

}  // namespace texthost
