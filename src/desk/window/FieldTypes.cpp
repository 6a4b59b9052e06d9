#include "desk/window/FieldTypes.h"

#include "desk/tables/PlainObjects.h"

namespace desk {

namespace {

QString Sized(const QString& type, int length) {
    return length > 0 ? type + " (" + QString::number(length) + ")" : type;
}

}  // namespace

QString TypeInWords(const DbfField& field) {
    switch (field.kind) {
        case DbfKind::Text:
            return Sized("Text", field.length);
        case DbfKind::Number:
            return field.decimals == 0 ? Sized("Number", field.length)
                                       : "Number (" + QString::number(field.length) + "." +
                                             QString::number(field.decimals) + ")";
        case DbfKind::Date:
            return "Date";
        case DbfKind::Logical:
            return "Yes or no";
        case DbfKind::Memo:
            return "Memo, not read";
        case DbfKind::Unknown:
            break;
    }
    return "Not read";
}

QString TypeInWords(const host::IHostField& field) {
    switch (field.Type()) {
        case host::kFieldTypeText:
            return Sized("Text", field.Length());
        case host::kFieldTypeObjectId:
            return "Identifier";
        case kFieldTypeNumber:
            return Sized("Number", field.Length());
        case kFieldTypeDate:
            return "Date";
        case kFieldTypeLogical:
            return "Yes or no";
        default:
            return "Other";
    }
}

}  // namespace desk
