// The stops of the tour, in its order.
#pragma once

class CTour;

void StartWithNothing(CTour &tour);
void OpenBuildAndJump(CTour &tour);
void WorkOnTwoProjects(CTour &tour);
void EditSources(CTour &tour);
void ChooseColours(CTour &tour);
void FindOnesWay(CTour &tour);
void DebugTheExamples(CTour &tour);
void LookIntoMemory(CTour &tour);
void LookIntoLargeMemory(CTour &tour);
void ArrangeTheFrame(CTour &tour);
void LookIntoTheMenus(CTour &tour);
