#include "InterfaceToken.h"

#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>

namespace android {

namespace {

constexpr int kFailed = -1;
constexpr size_t kResultSize = sizeof(int32_t);

/** One request, its reply, and the three shapes in which a reply is answered. */
class Call {
public:
    Call(TVBaseClient& client, int cmd) : mClient(client) {
        mRequest.writeInterfaceToken(kelutv::internal::TBS_INTERFACE_NAME);
        mRequest.writeInt32(cmd);
    }

    Call& add(int arg) {
        mRequest.writeInt32(arg);
        return *this;
    }
    Call& add(char const* arg) {
        mRequest.writeCString(arg);
        return *this;
    }
    Call& add(Parcel const& arg) {
        mRequest.appendFrom(&arg, 0, arg.dataSize());
        return *this;
    }
    Call& add(unsigned char const* bytes, int length) {
        if (length > 0) {
            mRequest.write(bytes, static_cast<size_t>(length));
        }
        return *this;
    }

    int status() {
        if (!exchange()) {
            logFailure();
            return kFailed;
        }
        return mReply.readInt32();
    }

    int value() { return succeed() ? mReply.readInt32() : kFailed; }

    int parcel(Parcel& result) {
        if (!succeed()) {
            return kFailed;
        }
        const size_t behind = mReply.dataSize() < kResultSize ? mReply.dataSize() : kResultSize;
        result.setData(mReply.data() + behind, mReply.dataSize() - behind);
        return 0;
    }

    int parcelOrLog(Parcel& result) {
        const int answer = parcel(result);
        if (answer != 0) {
            logFailure();
        }
        return answer;
    }

private:
    bool exchange() { return mClient.invoke(mRequest, &mReply) == NO_ERROR; }
    bool succeed() { return exchange() && mReply.readInt32() == 0; }
    static void logFailure() { __android_log_print(ANDROID_LOG_ERROR, "TVBaseService@Client", "invoke failure\n"); }

    TVBaseClient& mClient;
    Parcel mRequest;
    Parcel mReply;
};

} // namespace

int TVBaseClient::exeCmdSet(int cmd) { return Call(*this, cmd).status(); }

int TVBaseClient::exeCmdSet(int cmd, int arg1) { return Call(*this, cmd).add(arg1).status(); }

int TVBaseClient::exeCmdSet(int cmd, char* arg1) { return Call(*this, cmd).add(arg1).status(); }

int TVBaseClient::exeCmdSet(int cmd, char const* arg1) { return Call(*this, cmd).add(arg1).status(); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, char const* arg2) {
    return Call(*this, cmd).add(arg1).add(arg2).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, char const* arg2, char const* arg3) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2) { return Call(*this, cmd).add(arg1).add(arg2).status(); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).add(arg4).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4, int arg5) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).add(arg4).add(arg5).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, char const* arg3) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).status();
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, char const* arg3, int arg4) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).add(arg4).status();
}

int TVBaseClient::exeCmdSet(int cmd, char const* arg1, char const* arg2, char const* arg3, char const* arg4) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).add(arg4).status();
}

int TVBaseClient::exeCmdSet(int cmd, char const* arg1, int arg2, int arg3, int arg4, int arg5) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).add(arg4).add(arg5).status();
}

int TVBaseClient::exeCmdSet(int cmd, Parcel const& arg) { return Call(*this, cmd).add(arg).status(); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, Parcel const& arg) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg).status();
}

int TVBaseClient::exeCmdSet(int cmd, Parcel const& write, Parcel& read) {
    return Call(*this, cmd).add(write).parcelOrLog(read);
}

int TVBaseClient::exeCmdGet(int cmd) { return Call(*this, cmd).value(); }

int TVBaseClient::exeCmdGet(int cmd, int arg1) { return Call(*this, cmd).add(arg1).value(); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2) { return Call(*this, cmd).add(arg1).add(arg2).value(); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, int arg3) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).value();
}

int TVBaseClient::exeCmdGet(int cmd, Parcel& result) { return Call(*this, cmd).parcel(result); }

int TVBaseClient::exeCmdGet(int cmd, int arg, Parcel& result) { return Call(*this, cmd).add(arg).parcel(result); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, Parcel& result) {
    return Call(*this, cmd).add(arg1).add(arg2).parcel(result);
}

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, int arg3, Parcel& result) {
    return Call(*this, cmd).add(arg1).add(arg2).add(arg3).parcel(result);
}

int TVBaseClient::exeCmdGet(int cmd, int doFlag, int param, int dataSize, int* size, unsigned char* data,
                            Parcel& result) {
    return Call(*this, cmd).add(doFlag).add(param).add(dataSize).add(*size).add(data, dataSize).parcel(result);
}

} // namespace android
