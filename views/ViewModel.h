// Putting a model on a view without piling up selection models.
#pragma once

class QAbstractItemModel;
class QAbstractItemView;

// view->setModel(model); the selection models the view and its header made
// for the models they had before go with the next turn of the event loop.
// Qt makes a new one at every change of model and keeps the old ones as
// children of the view, for as long as the view lives.
void SetViewModel(QAbstractItemView* view, QAbstractItemModel* model);
