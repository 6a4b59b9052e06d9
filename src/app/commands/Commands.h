#pragma once

#include <functional>
#include <string>

#include "app/document/ArgumentParser.h"
#include "app/document/Options.h"

/// The commands, one file each: what it takes, and what it does.
namespace app {

void AddMake(Arguments& program);
void AddNew(Arguments& program);
void AddSet(Arguments& program);
void AddColumn(Arguments& program);
void AddCheck(Arguments& program);
void AddGenerate(Arguments& program);
void AddShow(Arguments& program);
void AddDraft(Arguments& program);
void AddDraw(Arguments& program);
void AddExport(Arguments& program);
void AddTable(Arguments& program);
void AddComponent(Arguments& program);

/// What a command does. Answers the exit status; what goes wrong is raised.
using CommandRun = std::function<int(const CommonOptions&)>;

/// Adds a command with the options that all commands take.
Arguments AddCommand(Arguments& parent, const char* name, const char* text, CommandRun run);
/// Adds the document that most commands work on.
Arguments& AddDocument(Arguments& command, std::string& document);
/// Adds what `make` and `new` take.
void AddNewDocumentOptions(Arguments& command, NewDocumentOptions& options);

}  // namespace app
