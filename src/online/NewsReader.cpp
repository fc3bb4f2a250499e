#include "online/NewsReader.h"

void StartNewsFetch() {}
