// The test program's one QApplication, made on first use; offscreen by default.
#pragma once

class QApplication;

QApplication* EnsureApp();
