#include "platform/pdf/FontFinder.h"

#include <array>

// clang-format off
#include <windows.h>
#include <dwrite_2.h>
// clang-format on

#include "platform/FileLookup.h"
#include "platform/windows/ProgramFolder.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using Owned = std::unique_ptr<Interface, Release>;

// What `get` puts where it is told; null when it fails.
template <typename Interface, typename Get>
Owned<Interface> Made(Get get) {
    Interface* made = nullptr;
    return Owned<Interface>(SUCCEEDED(get(&made)) ? made : nullptr);
}

template <typename Interface>
Owned<Interface> As(IUnknown* object) {
    return Made<Interface>([object](Interface** made) {
        return object != nullptr
                   ? object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(made))
                   : E_POINTER;
    });
}

Owned<IDWriteFont> RegularFaceOf(IDWriteFontFamily* family) {
    return Made<IDWriteFont>([family](IDWriteFont** made) {
        return family != nullptr ? family->GetFirstMatchingFont(DWRITE_FONT_WEIGHT_NORMAL,
                                                                DWRITE_FONT_STRETCH_NORMAL,
                                                                DWRITE_FONT_STYLE_NORMAL, made)
                                 : E_POINTER;
    });
}

bool HasCharacter(IDWriteFont* font, char32_t character) {
    WINBOOL has = FALSE;
    return font != nullptr && SUCCEEDED(font->HasCharacter(character, &has)) && has != FALSE;
}

bool IsOneColour(IDWriteFont* font) {
    const auto newer = As<IDWriteFont2>(font);
    return !newer || newer->IsColorFont() == FALSE;
}

// Absent for what is no file of this machine, and for a font of dots.
std::optional<FontFile> FileOf(IDWriteFont* font) {
    const auto face = Made<IDWriteFontFace>([font](IDWriteFontFace** made) {
        return font != nullptr ? font->CreateFontFace(made) : E_POINTER;
    });
    if (!face) {
        return std::nullopt;
    }
    const DWRITE_FONT_FACE_TYPE type = face->GetType();
    if (type != DWRITE_FONT_FACE_TYPE_TRUETYPE && type != DWRITE_FONT_FACE_TYPE_CFF &&
        type != DWRITE_FONT_FACE_TYPE_TRUETYPE_COLLECTION) {
        return std::nullopt;
    }
    UINT32 count = 1;
    const auto file =
        Made<IDWriteFontFile>([&](IDWriteFontFile** made) { return face->GetFiles(&count, made); });
    const auto loader = Made<IDWriteFontFileLoader>(
        [&](IDWriteFontFileLoader** made) { return file ? file->GetLoader(made) : E_POINTER; });
    const auto local = As<IDWriteLocalFontFileLoader>(loader.get());
    const void* key = nullptr;
    UINT32 keySize = 0;
    UINT32 length = 0;
    if (!local || FAILED(file->GetReferenceKey(&key, &keySize)) ||
        FAILED(local->GetFilePathLengthFromKey(key, keySize, &length))) {
        return std::nullopt;
    }
    std::wstring path(length + 1, L'\0');
    if (FAILED(local->GetFilePathFromKey(key, keySize, path.data(), length + 1))) {
        return std::nullopt;
    }
    path.resize(length);
    return FontFile{TextOf(path), face->GetIndex()};
}

// The system's interfaces are never deleted.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// One character, as the system asks for texts.
class OneCharacter final : public IDWriteTextAnalysisSource {
  public:
    explicit OneCharacter(char32_t character) {
        if (character >= 0x10000) {
            text_ += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10U));
            character = 0xDC00 + ((character - 0x10000) & 0x3FFU);
        }
        text_ += static_cast<wchar_t>(character);
    }
    ~OneCharacter() = default;
    OneCharacter(const OneCharacter&) = delete;
    OneCharacter& operator=(const OneCharacter&) = delete;
    UINT32 Length() const { return static_cast<UINT32>(text_.size()); }

    // Whoever asks does not keep it.
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = IsEqualIID(id, __uuidof(IUnknown)) != 0 ||
                           IsEqualIID(id, __uuidof(IDWriteTextAnalysisSource)) != 0;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE GetTextAtPosition(UINT32 position, const WCHAR** text,
                                                UINT32* length) override {
        const bool inside = position < text_.size();
        *text = inside ? text_.data() + position : nullptr;
        *length = inside ? Length() - position : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTextBeforePosition(UINT32 position, const WCHAR** text,
                                                    UINT32* length) override {
        const bool inside = position > 0 && position <= text_.size();
        *text = inside ? text_.data() : nullptr;
        *length = inside ? position : 0;
        return S_OK;
    }
    DWRITE_READING_DIRECTION STDMETHODCALLTYPE GetParagraphReadingDirection() override {
        return DWRITE_READING_DIRECTION_LEFT_TO_RIGHT;
    }
    HRESULT STDMETHODCALLTYPE GetLocaleName(UINT32, UINT32* length, const WCHAR** name) override {
        *length = Length();
        *name = L"en-us";
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetNumberSubstitution(
        UINT32, UINT32* length, IDWriteNumberSubstitution** substitution) override {
        *length = Length();
        *substitution = nullptr;
        return S_OK;
    }

  private:
    std::wstring text_;
};

std::wstring WideOf(const std::string& text) {
    return PathOf(text).wstring();
}

// What comes along with the program.
fs::path ShippedFile(const std::string& family) {
    std::string name = family + "-Regular.ttf";
    std::erase(name, ' ');
    return ProgramFolder() / "fonts" / name;
}

// The regular face's, as the system lists it for all users or for this one; empty when it does not.
fs::path InstalledFile(HKEY users, const std::string& family) {
    constexpr wchar_t kList[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
    std::array<wchar_t, 1024> name{};
    DWORD bytes = sizeof name - sizeof(wchar_t);
    if (::RegGetValueW(users, kList, (WideOf(family) + L" (TrueType)").c_str(), RRF_RT_REG_SZ,
                       nullptr, name.data(), &bytes) != ERROR_SUCCESS) {
        return {};
    }
    std::array<wchar_t, MAX_PATH + 1> windows{};
    ::GetWindowsDirectoryW(windows.data(), MAX_PATH);
    return fs::path(windows.data()) / "Fonts" / name.data();  // which may be a whole path
}

}  // namespace

// Asked only when the forms' typeface lacks a character: making its list takes the system a while.
struct FontFinder::Fonts {
    Owned<IDWriteFactory> factory = Made<IDWriteFactory>([](IDWriteFactory** made) {
        return ::DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                     reinterpret_cast<IUnknown**>(made));
    });
    Owned<IDWriteFontCollection> installed =
        Made<IDWriteFontCollection>([this](IDWriteFontCollection** made) {
            return factory ? factory->GetSystemFontCollection(made, FALSE) : E_POINTER;
        });

    Owned<IDWriteFontFamily> FamilyAt(UINT32 index) const {
        return Made<IDWriteFontFamily>([this, index](IDWriteFontFamily** made) {
            return installed->GetFontFamily(index, made);
        });
    }

    // What the system takes for texts in the family that have the character.
    Owned<IDWriteFont> Fallback(char32_t character, const std::string& family) const {
        const auto newer = As<IDWriteFactory2>(factory.get());
        const auto fallback = Made<IDWriteFontFallback>([&](IDWriteFontFallback** made) {
            return newer ? newer->GetSystemFontFallback(made) : E_POINTER;
        });
        return Made<IDWriteFont>([&](IDWriteFont** made) {
            if (!fallback) {
                return E_POINTER;
            }
            OneCharacter text(character);
            UINT32 length = 0;
            FLOAT scale = 1;
            return fallback->MapCharacters(&text, 0, text.Length(), installed.get(),
                                           WideOf(family).c_str(), DWRITE_FONT_WEIGHT_NORMAL,
                                           DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL,
                                           &length, made, &scale);
        });
    }
};

FontFinder::FontFinder() = default;
FontFinder::~FontFinder() = default;

std::optional<FontFile> FontFinder::Family(const std::string& family) const {
    for (const fs::path& file : {ShippedFile(family), InstalledFile(HKEY_LOCAL_MACHINE, family),
                                 InstalledFile(HKEY_CURRENT_USER, family)}) {
        std::error_code error;
        if (fs::is_regular_file(file, error)) {
            return FontFile{TextOf(file)};
        }
    }
    return std::nullopt;
}

std::optional<FontFile> FontFinder::With(char32_t character, const std::string& family) {
    const auto suits = [character](IDWriteFont* font) {
        return HasCharacter(font, character) && IsOneColour(font);
    };
    if (!fonts_) {
        fonts_ = std::make_unique<Fonts>();
    }
    if (!fonts_->installed) {
        return std::nullopt;
    }
    if (const auto font = fonts_->Fallback(character, family); suits(font.get())) {
        if (const auto file = FileOf(font.get())) {
            return file;
        }
    }
    // The system prefers its coloured signs, and knows of no font that was added to it.
    for (UINT32 i = 0; i < fonts_->installed->GetFontFamilyCount(); ++i) {
        const auto font = RegularFaceOf(fonts_->FamilyAt(i).get());
        if (suits(font.get())) {
            if (const auto file = FileOf(font.get())) {
                return file;
            }
        }
    }
    return std::nullopt;
}

}  // namespace qfr
