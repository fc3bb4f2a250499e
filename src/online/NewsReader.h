// The news reader.
#pragma once

// Fetches the news in the background and shows what the user has not seen. Called once after start-up when the user
// wants news.
void StartNewsFetch();
