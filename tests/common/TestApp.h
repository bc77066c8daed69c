// The one QApplication of a test program, made on first use, offscreen
// unless the environment picks a platform.
#pragma once

class QApplication;

QApplication* EnsureApp();
