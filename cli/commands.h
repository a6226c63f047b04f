#pragma once

#include <string>
#include <string_view>

#include <CLI/CLI.hpp>

#include "annotation/parameters.h"
#include "cli/context.h"

// The commands, in groups. Each function adds its commands to the program; a command runs when the
// words of the call have been understood.

namespace voxilane {

void addAnnotateCommand(CLI::App& app, Context& context);
void addWordCommands(CLI::App& app, Context& context);          // mark, lookup, infer, explain
void addNotationCommands(CLI::App& app, Context& context);      // convert, syllables
void addNumberCommands(CLI::App& app, Context& context);        // number, year, phone
void addLibraryCommands(CLI::App& app, Context& context);       // library info, get, check, ...
void addDocumentToolCommands(CLI::App& app, Context& context);  // reconvert, refont

// The library commands that read and write its text form: import, export.
void addLibraryTextCommands(CLI::App& library, Context& context);

// Refuses an argument that is not UTF-8.
extern const CLI::Validator utf8Text;

// Refuses the empty name of a file.
extern const CLI::Validator fileName;

// Option groups that several commands have.
extern const CLI::IsMember editionNames;    // new, old, mei
extern const CLI::IsMember bracketNames;    // slash, square, none
extern const CLI::IsMember separatorNames;  // kongge, huiche

// Sets the brackets by the name that --brackets takes; an empty name changes nothing.
void setBracketsNamed(CanshuSet& canshu, std::string_view name);

}  // namespace voxilane
