// Groups of the window settings file: splitter and widget geometry and a
// text map, each inside the group named by the second argument.
#pragma once

#include <QMap>
#include <QString>

class QSettings;
class QSplitter;
class QWidget;

// "Width", "Height", then the array "sizes" of entries "size".
void Split2Ini(QSettings& s, QString group, QSplitter* splitter);
// Resizes the splitter, then sets the sizes read, 30 for any size of 0 or
// less.
void SplitFromIni(QSettings& s, QString group, QSplitter* splitter);
// "left", "top", "Width", "Height".
void Wdg2Ini(QSettings& s, QString group, QWidget* widget);
void WdgFromIni(QSettings& s, QString group, QWidget* widget);
// The array "items" of entries "item", each "key=value".
void QMap_QStrQStr2Ini(QSettings& s, QString group, QMap<QString, QString>& map);
// Empties the map and reads the array back, splitting at the first "=".
void QMap_QStrQStrFromIni(QSettings& s, QString group, QMap<QString, QString>& map);
