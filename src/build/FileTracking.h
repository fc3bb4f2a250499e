// The documents' files in the file tracker, all at once.
#pragma once

// While a step runs, what it does to open files is no change by others.
void DisarmOpenDocuments();
void ArmOpenDocuments();  // takes their present write times
