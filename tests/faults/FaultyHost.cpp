#include "faults/FaultyHost.h"

#include "desk/objects/Elements.h"
#include "desk/objects/PropertySet.h"
#include "faults/FaultyObjects.h"

namespace faults {

using host::IHostEnvelope;
using host::IHostField;
using host::IHostFields;
using host::IHostGeometry;
using host::IHostIdentifier;
using host::IHostObject;
using host::IHostQueryFilter;
using host::IHostRow;
using host::IHostTable;

// clang-format off

FAULTY(IHostPropertySet, host::IHostPropertyNames)
    COPIED_AS(IHostPropertySet)
    GET(std::int32_t, Count) GET(host::PropertyItems, AllItems)
    ASK(Variant, Item, (const std::string& name), (name), const)
    TELL(SetItem, (const std::string& name, Variant value), (name, std::move(value)))
    SET(RemoveItem, const std::string&)
    std::vector<std::string> FirstNames(std::size_t most) const override {
        faults_.Tick(kName, "FirstNames");
        return Also<host::IHostPropertyNames>().FirstNames(most);
    }
};
FAULTY(IHostObjectCopy)
    ASK(Ref<IHostObject>, Copy, (const Ref<IHostObject>& object), (object))
};

#define ALSO(R, I, Name, Params, Args, ...)         \
    R Name Params __VA_ARGS__ override {            \
        faults_.Tick(kName, #Name);                 \
        return Also<host::I>().Name Args;           \
    }
#define AS_ELEMENT                                                                                \
    GET(Ref<IHostGeometry>, Geometry) SET(SetGeometry, const Ref<IHostGeometry>&)                 \
    TELL(MeasureBounds, (const Ref<host::IHostDisplay>& display,                                  \
                         const Ref<IHostEnvelope>& bounds), (display, bounds))                    \
    ALSO(std::string, IHostElementName, Name, (), (), const)                                      \
    ALSO(void, IHostElementName, SetName, (const std::string& name), (name))                      \
    ALSO(Variant, IHostCustomProperty, CustomProperty, (), (), const)                             \
    ALSO(void, IHostCustomProperty, SetCustomProperty, (Variant value), (std::move(value)))

FAULTY(IHostGroupElement, host::IHostElementName, host::IHostCustomProperty,
       host::IHostFrameElement, host::IHostDraftOption)
    AS_ELEMENT
    GET(std::int32_t, Count)
    ASK(Ref<host::IHostElement>, Item, (std::int32_t index), (index), const)
    SET(Add, const Ref<host::IHostElement>&) SET(Remove, const Ref<host::IHostElement>&)
    ALSO(bool, IHostFrameElement, Draft, (), (), const)
    ALSO(void, IHostFrameElement, SetDraft, (bool draft), (draft))
    ALSO(void, IHostDraftOption, SetValue, (std::int32_t value), (value))
};
FAULTY(IHostTextElement, host::IHostElementName, host::IHostCustomProperty)
    AS_ELEMENT
    GET(Ref<host::IHostTextSymbol>, Symbol) SET(SetSymbol, const Ref<host::IHostTextSymbol>&)
    GET(std::string, Text) SET(SetText, const std::string&)
    GET(bool, ScaleWithPage) SET(SetScaleWithPage, bool)
};
FAULTY(IHostFilledElement, host::IHostElementName, host::IHostCustomProperty)
    AS_ELEMENT
    GET(Ref<host::IHostFillSymbol>, Symbol) SET(SetSymbol, const Ref<host::IHostFillSymbol>&)
};

FAULTY(IHostProgressAnimation)
    TELL(Show, (), ()) TELL(Play, (), ()) TELL(Hide, (), ()) TELL(Stop, (), ())
};
FAULTY(IHostStatusBar)
    TELL(SetText, (std::int32_t pane, const std::string& text), (pane, text))
    MAKE(Ref<host::IHostProgressAnimation>, ProgressAnimation)
};
FAULTY(IHostDisplayTransformation)
    GET(Ref<IHostEnvelope>, ShownExtent) SET(SetShownExtent, const Ref<IHostEnvelope>&)
    GET(Ref<IHostEnvelope>, FullExtent) SET(SetFullExtent, const Ref<IHostEnvelope>&)
    GET(host::PixelRectangle, DeviceRectangle)
    SET(SetDeviceRectangle, const host::PixelRectangle&)
    GET(double, DotsPerInch) SET(SetDotsPerInch, double)
};
FAULTY(IHostDisplay)
    GET(host::DeviceContext, Device)
    GET(Ref<host::IHostDisplayTransformation>, Transformation)
    TELL(BeginDrawing, (host::DeviceContext device, int cache), (device, cache))
    TELL(EndDrawing, (), ())
};
FAULTY(IHostActiveView)
    MAKE(Ref<host::IHostDisplay>, Display) TELL(Refresh, (), ())
};
FAULTY(IHostDocument)
    MAKE(Ref<host::IHostActiveView>, ActiveView) MAKE(Ref<host::IHostCommandBars>, CommandBars)
};
FAULTY(IHostApplication)
    MAKE(Ref<host::IHostDocument>, Document) MAKE(Ref<host::IHostStatusBar>, StatusBar)
    MAKE(host::WindowHandle, WindowHandle)
};

FAULTY(IHostCommandItem)
    TELL(Execute, (), ())
};
FAULTY(IHostCommandBars)
    ASK(Ref<host::IHostCommandItem>, Find,
        (const Ref<IHostIdentifier>& name, bool create, bool hidden), (name, create, hidden))
};

FAULTY(IHostIdentifier)
    GET(std::string, Value) SET(SetValue, const std::string&)
};
FAULTY(IHostField)
    GET(std::string, Name) SET(SetName, const std::string&)
    GET(std::int32_t, Type) SET(SetType, std::int32_t)
    GET(std::int32_t, Length) SET(SetLength, std::int32_t)
};
FAULTY(IHostFields)
    GET(std::int32_t, FieldCount) SET(SetFieldCount, std::int32_t)
    ASK(Ref<IHostField>, Field, (std::int32_t index), (index), const)
    TELL(SetField, (std::int32_t index, const Ref<IHostField>& field), (index, field))
    ASK(std::int32_t, FindField, (const std::string& name), (name), const)
};
FAULTY(IHostRow)
    ASK(Variant, Value, (std::int32_t index), (index), const)
    TELL(SetValue, (std::int32_t index, Variant value), (index, std::move(value)))
    GET(std::int32_t, OID)
};
FAULTY(IHostQueryFilter)
    GET(std::string, WhereClause) SET(SetWhereClause, const std::string&)
};
FAULTY(IHostCursor)
    MAKE(Ref<IHostRow>, NextRow)
    TELL(InsertRow, (const Ref<IHostRow>& buffer), (Unwrapped(buffer)))
    TELL(Flush, (), ())
};
FAULTY(IHostTable)
    GET(Ref<IHostFields>, Fields)
    ASK(std::int32_t, FindField, (const std::string& name), (name), const)
    ASK(Ref<host::IHostCursor>, Search, (const Ref<IHostQueryFilter>& filter, bool recycling),
        (filter, recycling))
    ASK(Ref<host::IHostCursor>, Insert, (bool buffering), (buffering))
    MAKE(Ref<IHostRow>, CreateRowBuffer)
};
FAULTY(IHostDataset)
    GET(std::string, Name) TELL(Delete, (), ())
};
FAULTY(IHostDatasetEnum)
    MAKE(Ref<host::IHostDataset>, Next)
};
FAULTY(IHostWorkspace)
    ASK(Ref<IHostTable>, OpenTable, (const std::string& name), (name))
    ASK(Ref<IHostTable>, CreateTable,
        (const std::string& name, const Ref<IHostFields>& fields, const Ref<IHostIdentifier>& row,
         const Ref<IHostIdentifier>& extension, const std::string& configuration),
        (name, fields, row, extension, configuration))
    ASK(Ref<host::IHostDatasetEnum>, Datasets, (std::int32_t type), (type))
};
FAULTY(IHostScratchWorkspaceFactory)
    MAKE(Ref<host::IHostWorkspace>, CreateWorkspace)
};
FAULTY(IHostWorkspaceFactory)
    ASK(Ref<host::IHostWorkspace>, OpenFromFile, (const std::string& path, std::int32_t window),
        (path, window))
};
// The real sort reads the table through its operations, as it does of any table not its own.
FAULTY(IHostTableSort)
    SET(SetTable, const Ref<IHostTable>&) SET(SetQueryFilter, const Ref<IHostQueryFilter>&)
    SET(SetFields, const std::string&)
    TELL(SetAscending, (const std::string& field, bool ascending), (field, ascending))
    TELL(SetFieldOption, (const std::string& field, bool option), (field, option))
    SET(SetCallback, const Ref<host::ITableSortCallBack>&) SET(Sort, const Ref<IHostObject>&)
    MAKE(Ref<host::IHostCursor>, Rows)
};

FAULTY(CVNLayoutContext)
    MAKE(Variant, CurrentTemplateKey)
};
FAULTY(IHostElementContainer)
    TELL(Reset, (), ()) MAKE(Ref<host::IHostElement>, Next)
};
#define OF_KEY(R, Name) ASK(R, Name, (const std::string& key), (key))
FAULTY(CVNMapBook)
    OF_KEY(std::string, TemplateSection) OF_KEY(std::string, SectionBook)
    OF_KEY(std::vector<std::string>, SectionKeys) OF_KEY(std::string, SectionName)
    OF_KEY(std::vector<std::string>, TemplateKeys) OF_KEY(std::string, TemplateName)
    OF_KEY(Variant, SectionStartPage) OF_KEY(std::vector<std::string>, SectionPages)
    Ref<IHostObject> TemplateLayout(const std::string& key) override {
        faults_.Tick(kName, "TemplateLayout");
        return Pass(host::As<host::IHostElementContainer>(real_->TemplateLayout(key)));
    }
};
FAULTY(IHostIndexLayer)
    GET(Ref<IHostTable>, Table)
};
#define OF_FRAME(Name) ASK(bool, Name, (const Ref<host::IHostMapFrame>& frame), (frame))
FAULTY(MapSeriesManager)
    OF_FRAME(IsSeriesFrame) OF_FRAME(HasIndexLayer)
    TELL(ClearFrame, (), ()) SET(SetFrame, const Ref<host::IHostMapFrame>&)
    MAKE(Ref<host::IHostIndexLayer>, IndexLayer) MAKE(Variant, FirstPageNumber)
    ASK(Ref<IHostRow>, PageFeature, (std::int32_t page), (page))
};
FAULTY(CVNExpressionEngine)
    ASK(bool, IsValidExpression, (const Ref<IHostTable>& table, const std::string& text),
        (table, text))
    ASK(host::ExpressionFinding, Explain, (const Ref<IHostTable>& table, const std::string& text),
        (table, text))
    ASK(std::string, Evaluate,
        (const Ref<IHostTable>& table, const Ref<IHostRow>& row, const std::string& text,
         const host::TokenValues& tokens), (table, row, text, tokens))
    ASK(std::string, EditExpression,
        (const Ref<IHostTable>& table, const std::string& text,
         const std::vector<host::TokenDescription>& tokens), (table, text, tokens))
};

FAULTY(IHostLocale)
    ASK(int, CompareText, (const std::string& one, const std::string& other), (one, other))
    ASK(std::string, CollationKey, (const std::string& text), (text))
    ASK(std::optional<double>, ParseNumber, (const std::string& text), (text))
    ASK(std::string, FormatNumber, (double value), (value))
    ASK(std::vector<std::size_t>, Characters, (std::string_view text), (text))
};

FAULTY(IHost)
    MAKE(Ref<host::IHostPropertySet>, NewPropertySet)
    MAKE(Ref<host::IHostObjectCopy>, NewObjectCopy)
    MAKE(Ref<host::IHostPoint>, NewPoint) MAKE(Ref<IHostEnvelope>, NewEnvelope)
    MAKE(Ref<host::IHostLine>, NewLine)
    MAKE(Ref<host::IHostFont>, NewFont) MAKE(Ref<host::IHostColor>, NewColor)
    MAKE(Ref<host::IHostTextSymbol>, NewTextSymbol) MAKE(Ref<host::IHostFillSymbol>, NewFillSymbol)
    MAKE(Ref<host::IHostLineSymbol>, NewLineSymbol)
    MAKE(Ref<host::IHostGroupElement>, NewGroupElement)
    MAKE(Ref<host::IHostTextElement>, NewTextElement)
    MAKE(Ref<host::IHostFilledElement>, NewRectangleElement)
    MAKE(Ref<host::IHostApplication>, NewApplication)
    MAKE(Ref<host::IHostDisplayTransformation>, NewDisplayTransformation)
    ASK(Ref<host::IHostPixelSurface>, NewPixelSurface,
        (std::int32_t width, std::int32_t height, double dotsPerInch), (width, height, dotsPerInch))
    MAKE(Ref<host::IHostObjectDialog>, NewObjectDialog)
    MAKE(Ref<host::IHostObjectFilter>, NewTableFilter)
    MAKE(Ref<host::IHostSymbolDialog>, NewSymbolDialog)
    MAKE(Ref<host::IHostComponentRegistrar>, NewComponentRegistrar)
    MAKE(Ref<host::IHostScratchWorkspaceFactory>, NewScratchWorkspaceFactory)
    MAKE(Ref<host::IHostWorkspaceFactory>, NewWorkspaceFactory)
    MAKE(Ref<IHostFields>, NewFields) MAKE(Ref<IHostField>, NewField)
    MAKE(Ref<IHostQueryFilter>, NewQueryFilter) MAKE(Ref<IHostIdentifier>, NewIdentifier)
    MAKE(Ref<host::IHostTableSort>, NewTableSort)
    MAKE(Ref<host::CVNLayoutContext>, NewLayoutContext) MAKE(Ref<host::CVNMapBook>, NewMapBook)
    MAKE(Ref<host::MapSeriesManager>, NewMapSeriesManager)
    MAKE(Ref<host::CVNExpressionEngine>, NewExpressionEngine)
    ASK(bool, FileExists, (const std::string& path), (path))
    host::IHostLocale& Locale() override { return locale_; }
    host::IHostDialogs& Dialogs() override { return real_->Dialogs(); }
    host::IHostDevices& Devices() override { return real_->Devices(); }

private:
    Faulty<host::IHostLocale> locale_{faults_, Ref<host::IHostLocale>(real_, &real_->Locale())};
};

// clang-format on

namespace {

Ref<host::IHostPropertySet> InfectSet(const host::IHostPropertySet& set, Faults& faults) {
    auto copy = std::make_shared<desk::PropertySet>();
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        Variant value = items.values[i];
        if (auto* const object = std::get_if<Ref<IHostObject>>(&value)) {
            if (const auto inner = host::As<host::IHostPropertySet>(*object))
                *object = InfectSet(*inner, faults);
            else if (const auto text = host::As<host::IHostTextSymbol>(*object))
                *object = Wrap(faults, host::As<host::IHostTextSymbol>(text->Copy()));
            else if (const auto fill = host::As<host::IHostFillSymbol>(*object))
                *object = Wrap(faults, host::As<host::IHostFillSymbol>(fill->Copy()));
        }
        copy->SetItem(items.names[i], value);
    }
    return Wrap<host::IHostPropertySet>(faults, copy);
}

}  // namespace

Ref<host::IHost> MakeFaulty(const Ref<host::IHost>& host, Faults& faults) {
    return std::make_shared<Faulty<host::IHost>>(faults, host);
}

Ref<host::IHostGroupElement> Infect(const Ref<host::IHostGroupElement>& element, Faults& faults) {
    auto infected = std::make_shared<Faulty<host::IHostGroupElement>>(
        faults, std::make_shared<desk::GroupElement>());
    infected->SetGeometry(Wrap<IHostEnvelope>(faults, element->Geometry()->Bounds()));
    const auto custom = host::As<host::IHostCustomProperty>(element)->CustomProperty();
    const auto set = host::As<host::IHostPropertySet>(std::get<Ref<IHostObject>>(custom));
    infected->SetCustomProperty(Ref<IHostObject>(InfectSet(*set, faults)));
    return infected;
}

}  // namespace faults
