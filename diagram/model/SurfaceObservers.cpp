#include "diagram/model/SurfaceObservers.h"

namespace diagram {

void SurfaceObservers::ItemAdded(Item &item) {
    for (SurfaceObserver *observer : observers_) observer->ItemAdded(item);
}
void SurfaceObservers::ItemChanged(Item &item, Change what) {
    for (SurfaceObserver *observer : observers_) observer->ItemChanged(item, what);
}
void SurfaceObservers::ItemRemoved(Item &item) {
    for (SurfaceObserver *observer : observers_) observer->ItemRemoved(item);
}
void SurfaceObservers::SurfaceChanged(Change what) {
    for (SurfaceObserver *observer : observers_) observer->SurfaceChanged(what);
}
void SurfaceObservers::Cleared() {
    for (SurfaceObserver *observer : observers_) observer->Cleared();
}
void SurfaceObservers::BeforeUndo() {
    for (SurfaceObserver *observer : observers_) observer->BeforeUndo();
}
void SurfaceObservers::AfterUndo() {
    for (SurfaceObserver *observer : observers_) observer->AfterUndo();
}

} // namespace diagram
