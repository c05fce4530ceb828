// IDataObject: the picture of the control as a metafile or a bitmap.
#include <array>
#include <new>

#include "control/com/enumerator.h"
#include "control/com/graph_object.h"
#include "control/com/himetric.h"
#include "control/com/picture_formats.h"

namespace plotvane::control::com {

namespace {

struct PictureFormat {
  CLIPFORMAT format;
  TYMED medium;
};

constexpr std::array kFormats{
    PictureFormat{CF_ENHMETAFILE, TYMED_ENHMF},
    PictureFormat{CF_METAFILEPICT, TYMED_MFPICT},
    PictureFormat{CF_DIB, TYMED_HGLOBAL},
};

FORMATETC FormatOf(const PictureFormat& picture) {
  return {picture.format, nullptr, DVASPECT_CONTENT, -1, static_cast<DWORD>(picture.medium)};
}

}  // namespace

HRESULT GraphObject::QueryGetData(FORMATETC* format) noexcept {
  if (format == nullptr) return E_POINTER;
  if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (format->lindex != -1) return DV_E_LINDEX;
  for (const PictureFormat& picture : kFormats) {
    if (picture.format != format->cfFormat) continue;
    return (format->tymed & static_cast<DWORD>(picture.medium)) != 0 ? S_OK : DV_E_TYMED;
  }
  return DV_E_FORMATETC;
}

HRESULT GraphObject::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
  if (format == nullptr || medium == nullptr) return E_POINTER;
  *medium = STGMEDIUM{};
  const HRESULT known = QueryGetData(format);
  if (FAILED(known)) return known;
  return Enter([&] {
    const auto draw = [this](HDC context, const RECT& bounds) { DrawPicture(context, bounds); };
    const PixelSize size = PixelsOf(mExtent);
    switch (format->cfFormat) {
      case CF_ENHMETAFILE:
        medium->hEnhMetaFile = MakeEnhancedMetafile(mExtent, draw);
        medium->tymed = TYMED_ENHMF;
        break;
      case CF_METAFILEPICT:
        medium->hMetaFilePict = MakeMetafilePicture(mExtent, size, draw);
        medium->tymed = TYMED_MFPICT;
        break;
      default:
        medium->hGlobal = MakeBitmap(size, draw);
        medium->tymed = TYMED_HGLOBAL;
        break;
    }
  });
}

HRESULT GraphObject::GetDataHere(FORMATETC*, STGMEDIUM*) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::GetCanonicalFormatEtc(FORMATETC* wanted, FORMATETC* canonical) noexcept {
  if (wanted == nullptr || canonical == nullptr) return E_POINTER;
  *canonical = *wanted;
  canonical->ptd = nullptr;
  return DATA_S_SAMEFORMATETC;
}

HRESULT GraphObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
  if (formats == nullptr) return E_POINTER;
  *formats = nullptr;
  if (direction != DATADIR_GET) return E_NOTIMPL;
  return Enter([&] {
    std::vector<FORMATETC> list;
    for (const PictureFormat& picture : kFormats) list.push_back(FormatOf(picture));
    *formats = Enumerate<IEnumFORMATETC, FORMATETC>(std::move(list));
  });
}

HRESULT GraphObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) noexcept {
  if (format == nullptr || connection == nullptr) return E_POINTER;
  *connection = 0;
  return Enter([&]() -> HRESULT {
    if (!mDataAdvises) {
      const HRESULT made = ::CreateDataAdviseHolder(mDataAdvises.Receive());
      if (FAILED(made)) return made;
    }
    return mDataAdvises->Advise(this, format, flags, sink, connection);
  });
}

HRESULT GraphObject::DUnadvise(DWORD connection) noexcept {
  return Enter(
      [&]() -> HRESULT { return mDataAdvises ? mDataAdvises->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

HRESULT GraphObject::EnumDAdvise(IEnumSTATDATA** advises) noexcept {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  return Enter([&]() -> HRESULT {
    return mDataAdvises ? mDataAdvises->EnumAdvise(advises) : OLE_E_ADVISENOTSUPPORTED;
  });
}

}  // namespace plotvane::control::com
