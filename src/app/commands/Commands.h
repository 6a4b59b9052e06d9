#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/work/Options.h"

/// The commands, one file each. Each answers the exit status; what goes wrong is raised.
namespace app {

struct MakeOptions : NewDocumentOptions {
    std::string output;
    std::string document;  ///< Where the document is kept; empty: nowhere.
};
int Make(const CommonOptions& common, const MakeOptions& options);

struct NewOptions : NewDocumentOptions {
    std::string document;
    bool force = false;
};
int New(const CommonOptions& common, const NewOptions& options);

struct SetOptions {
    std::string document;
    std::vector<std::string> assignments;
};
int Set(const CommonOptions& common, const SetOptions& options);

struct ColumnOptions {
    std::string document;
    std::string name;
    std::vector<std::string> assignments;
    bool json = false;
};
int ColumnAdd(const CommonOptions& common, const ColumnOptions& options);
int ColumnRemove(const CommonOptions& common, const ColumnOptions& options);
int ColumnList(const CommonOptions& common, const ColumnOptions& options);

struct DocumentOptions {
    std::string document;
    bool json = false;
};
int Check(const CommonOptions& common, const DocumentOptions& options);
int Generate(const CommonOptions& common, const DocumentOptions& options);
int Show(const CommonOptions& common, const DocumentOptions& options);
int Draft(const CommonOptions& common, const DocumentOptions& options);

struct DrawOptions {
    std::string document;
    std::int32_t page = 0;
    bool json = false;
    std::string output;
};
int Draw(const CommonOptions& common, const DrawOptions& options);

struct ExportOptions {
    std::string document;
    std::string output;
    std::string pages;
};
int Export(const CommonOptions& common, const ExportOptions& options);

struct TableOptions {
    std::string file;
    bool json = false;
    std::int64_t limit = -1;  ///< Rows shown; negative: all.
};
int Table(const CommonOptions& common, const TableOptions& options);

int Component(const CommonOptions& common, bool install);

}  // namespace app
