#include <kelutv/PCSetting.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

using android::TVBaseClient;

PCSetting* PCSetting::instance() {
    static PCSetting mObj;
    return &mObj;
}

int PCSetting::autoAdjust() { return TVBaseClient::self()->exeCmdSet(CMD_PCSETTING_PCAUTOADJUST); }

int PCSetting::setHPosition(int position) {
    return TVBaseClient::self()->exeCmdSet(CMD_PCSETTING_SETHPOSITION, position);
}

int PCSetting::getHPosition() { return TVBaseClient::self()->exeCmdGet(CMD_PCSETTING_GETHPOSITION); }

int PCSetting::setVPosition(int position) {
    return TVBaseClient::self()->exeCmdSet(CMD_PCSETTING_SETVPOSITION, position);
}

int PCSetting::getVPosition() { return TVBaseClient::self()->exeCmdGet(CMD_PCSETTING_GETVPOSITION); }

int PCSetting::setClock(int clock) { return TVBaseClient::self()->exeCmdSet(CMD_PCSETTING_SETCLOCK, clock); }

int PCSetting::getClock() { return TVBaseClient::self()->exeCmdGet(CMD_PCSETTING_GETCLOCK); }

int PCSetting::setPhase(int phase) { return TVBaseClient::self()->exeCmdSet(CMD_PCSETTING_SETPHASE, phase); }

int PCSetting::getPhase() { return TVBaseClient::self()->exeCmdGet(CMD_PCSETTING_GETPHASE); }
