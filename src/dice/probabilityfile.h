// Probability files (.prb): the matrix of the dice, on its own. Their bytes are described in doc/file-formats.md.
#pragma once

#include <string>
#include <string_view>

#include "table/crapcnst.h"

namespace tarnwick {

/// The matrix as a file.
std::string ProbabilityFileBytes(const MatrixCells& cells);
/// Reads a file's bytes into `cells`. False, with nothing changed, for another head, or for a result, total or face
/// below 0. A file that is cut short leaves the rest as it was. Of the states of cells only locks are taken, and a
/// selected cell that doesn't exist becomes the one of a new matrix.
bool ProbabilitiesFromBytes(std::string_view bytes, MatrixCells& cells);

/// Where the file `name` lies: in `userFolder`, unless the name holds ":", "\" or "/".
std::string ProbabilityPath(const std::string& userFolder, const std::string& name);

/// Makes the matrix of the file `path` the table's, under that name and unchanged. Whether it is thrown is another
/// matter (UseSkewedProbability). False, with nothing changed, when it can't be read or is none.
bool OpenProbabilities(Table& t, const std::string& path);
/// The same for a file that the user chose, who is told why it can't be opened.
bool OpenChosenProbabilities(Table& t, const std::string& path);
/// The same without a table: what is wrong, as a sentence, or nothing.
std::string ReadProbabilityFile(const std::string& path, MatrixCells& cells);

/// Replaces the file `path` by the table's matrix, which bears its name from then on and has no changes. Returns what
/// is wrong, or nothing; after a fault the file and the table are as they were.
std::string SaveProbabilities(Table& t, const std::string& path);

/// A matrix with unsaved changes in the standing file `path`, for the next start: the name and the changes stay.
std::string SaveUnsavedMatrix(const Table& t, const std::string& path);
/// Takes such a matrix back, as untitled and changed. False, with nothing changed, when the file can't be used.
bool OpenUnsavedMatrix(Table& t, const std::string& path);

/// What the user wants done with changes before the matrix is replaced.
enum class UnsavedChoice { Nothing, Save, Discard, Cancel };
/// Asks whether changes are to be saved; `Nothing` without a question when there are none.
UnsavedChoice AskAboutUnsaved(Table& t);

/// The true chances as Percentage Dice, untitled and unchanged. Ask about unsaved changes first.
void NewProbabilities(Table& t);

/// What the window calls the file: its name, or "untitled".
std::string ProbabilityTitle(const Table& t);

}  // namespace tarnwick
