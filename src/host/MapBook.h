#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/Elements.h"
#include "host/Tables.h"

namespace host {

/// Grids of a frame element, index from 0.
struct IHostMapGrid : virtual IHostObject {
    virtual bool Visible() const = 0;
};

/// A grid that names its rows and columns. Labels count from 1.
struct IHostIndexGrid : virtual IHostMapGrid {
    virtual std::int32_t RowCount() const = 0;
    virtual std::int32_t ColumnCount() const = 0;
    virtual std::string RowLabel(std::int32_t index) const = 0;
    virtual std::string ColumnLabel(std::int32_t index) const = 0;
};

struct IHostMapGrids : virtual IHostObject {
    virtual std::int32_t Count() const = 0;
    virtual Ref<IHostMapGrid> Item(std::int32_t index) const = 0;
};

struct IHostIndexLayer : virtual IHostObject {
    virtual Ref<IHostTable> Table() const = 0;
};

/// The template on show.
struct CVNLayoutContext : virtual IHostObject {
    virtual Variant CurrentTemplateKey() = 0;
};

/// Books hold sections in book order, sections hold templates.
struct CVNMapBook : virtual IHostObject {
    virtual std::string TemplateSection(const std::string& templateKey) = 0;
    /// Fails for a key that no book holds.
    virtual std::string SectionBook(const std::string& sectionKey) = 0;
    virtual std::vector<std::string> SectionKeys(const std::string& bookKey) = 0;
    virtual std::string SectionName(const std::string& sectionKey) = 0;
    virtual std::vector<std::string> TemplateKeys(const std::string& sectionKey) = 0;
    virtual std::string TemplateName(const std::string& templateKey) = 0;
    /// An object that can be read as IHostElementContainer.
    virtual Ref<IHostObject> TemplateLayout(const std::string& templateKey) = 0;
    virtual Variant SectionStartPage(const std::string& sectionKey) = 0;
    /// In page order, each a template key, "$" and a number.
    virtual std::vector<std::string> SectionPages(const std::string& sectionKey) = 0;
};

/// Map series frames, which page through the features of an index layer.
struct MapSeriesManager : virtual IHostObject {
    virtual bool IsSeriesFrame(const Ref<IHostMapFrame>& frame) = 0;
    virtual bool HasIndexLayer(const Ref<IHostMapFrame>& frame) = 0;
    virtual void ClearFrame() = 0;
    /// Selects the frame that the following calls refer to.
    virtual void SetFrame(const Ref<IHostMapFrame>& frame) = 0;
    virtual Ref<IHostIndexLayer> IndexLayer() = 0;
    virtual Variant FirstPageNumber() = 0;
    /// The index layer's row of a series page.
    virtual Ref<IHostRow> PageFeature(std::int32_t page) = 0;
};

/// The values of the tokens of one cell: "PAGE_NUMBER", "ROW", "COLUMN".
using TokenValues = std::map<std::string, Variant>;

/// A token and what it stands for, as the expression editor offers it.
struct TokenDescription {
    std::string token;
    std::string description;
};

/// What is wrong with an expression: empty text for a valid one.
struct ExpressionFinding {
    std::string text;   ///< "no field named Foo", "[ without ]".
    std::string field;  ///< The field at fault, where it is one.
    // The part of the expression at fault, in bytes.
    std::size_t begin = 0;
    std::size_t length = 0;
};

struct CVNExpressionEngine : virtual IHostObject {
    virtual bool IsValidExpression(const Ref<IHostTable>& table, const std::string& expression) = 0;
    virtual std::string Evaluate(const Ref<IHostTable>& table, const Ref<IHostRow>& row,
                                 const std::string& expression, const TokenValues& tokens) = 0;
    /// Opens the expression editor. Empty leaves the expression unchanged.
    virtual std::string EditExpression(const Ref<IHostTable>& table, const std::string& expression,
                                       const std::vector<TokenDescription>& tokens) = 0;
};

/// Optional on an expression engine: the reason for its verdict.
struct IHostExpressionExplanation : virtual IHostObject {
    /// Why an expression is not valid.
    virtual ExpressionFinding Explain(const Ref<IHostTable>& table,
                                      const std::string& expression) = 0;
};

/// Makes the objects of the current document's map book and the engine that composes texts.
struct IHostMapBookFactory : virtual IHostObject {
    virtual Ref<CVNLayoutContext> NewLayoutContext() = 0;
    virtual Ref<CVNMapBook> NewMapBook() = 0;
    virtual Ref<MapSeriesManager> NewMapSeriesManager() = 0;
    virtual Ref<CVNExpressionEngine> NewExpressionEngine() = 0;
};

}  // namespace host
