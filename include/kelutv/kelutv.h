/**
 * @file
 * The whole client interface: vocabulary and C functions, and for C++ the classes.
 */
#ifndef KELUTV_KELUTV_H
#define KELUTV_KELUTV_H

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>
#include <kelutv/config_types.h>
#include <kelutv/events.h>
#include <kelutv/factory_types.h>
#include <kelutv/hdmicec_types.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_hdmicec.h>
#include <kelutv/linux_kelutv_hotel.h>
#include <kelutv/linux_kelutv_notify.h>
#include <kelutv/linux_kelutv_pcmplayer.h>
#include <kelutv/linux_kelutv_pcsetting.h>
#include <kelutv/linux_kelutv_picture.h>
#include <kelutv/linux_kelutv_sourcemanager.h>
#include <kelutv/linux_kelutv_systemsetting.h>
#include <kelutv/linux_kelutv_video.h>
#include <kelutv/pcmplayer_types.h>
#include <kelutv/picture_types.h>
#include <kelutv/source_types.h>
#include <kelutv/system_types.h>
#include <kelutv/vbi_types.h>
#include <kelutv/video_types.h>

#ifdef __cplusplus
#include <kelutv/Audio.h>
#include <kelutv/Config.h>
#include <kelutv/Factory.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/KeluVbiCtrl.h>
#include <kelutv/KeluVbiManager.h>
#include <kelutv/PCMPlayer.h>
#include <kelutv/PCSetting.h>
#include <kelutv/Picture.h>
#include <kelutv/SourceManager.h>
#include <kelutv/SystemSetting.h>
#include <kelutv/Video3D.h>
#endif

#endif
