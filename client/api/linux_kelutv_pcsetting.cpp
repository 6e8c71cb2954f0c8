#include <kelutv/PCSetting.h>
#include <kelutv/linux_kelutv_pcsetting.h>

int linux_tv_PCSetting_autoAdjust() { return PCSetting::instance()->autoAdjust(); }

int linux_tv_PCSetting_setHPosition(int position) { return PCSetting::instance()->setHPosition(position); }

int linux_tv_PCSetting_getHPosition() { return PCSetting::instance()->getHPosition(); }

int linux_tv_PCSetting_setVPosition(int position) { return PCSetting::instance()->setVPosition(position); }

int linux_tv_PCSetting_getVPosition() { return PCSetting::instance()->getVPosition(); }

int linux_tv_PCSetting_setClock(int clock) { return PCSetting::instance()->setClock(clock); }

int linux_tv_PCSetting_getClock() { return PCSetting::instance()->getClock(); }

int linux_tv_PCSetting_setPhase(int phase) { return PCSetting::instance()->setPhase(phase); }

int linux_tv_PCSetting_getPhase() { return PCSetting::instance()->getPhase(); }
