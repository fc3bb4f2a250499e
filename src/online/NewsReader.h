// The news reader.
#pragma once

// Called once after start-up when the user wants news. The program knows no source of news, so there is nothing to do.
void StartNewsFetch();
