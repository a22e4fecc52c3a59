#pragma once
#include <QString>

// Fills the start-up values of the application state for the venue folder `home`.
void AppInit(const QString& home);

// Opens the process connection on the venue's configured database (creating or upgrading
// it); on failure shows "没能打开系统的数据库，请检查您的数据库配置是否正确！".
bool OpenDataBase();

// Loads the Qt resources of the static libraries.
void InitResources();
