/* A host in C: builds an order, saves and reads it, keeps it in a package, and lets the package
   fetch one from the host's own memory through a delegate.

   The program loads the DLL itself; one that links with the import library calls CreateJsonParser()
   directly. */
#include <stdint.h>
#include <stdio.h>
#include <windows.h>

#include "Json_Dll_c.h"

/* Ends the program: an example has nobody to report to. */
static void Check(bool condition, const char* what) {
    if (condition) return;
    fprintf(stderr, "%s\n", what);
    ExitProcess(1);
}

/* A line of the output, in UTF-8. */
static void Print(const char* what, const wchar_t* text) {
    char bytes[1024];
    Check(WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, NULL, NULL) > 0,
          "a long text");
    printf("%s: %s\n", what, bytes);
}

/* ---- Building ---- */

//! [build]
static void Build(IJsonGenerator* generator, const wchar_t* fileName) {
    const IJsonGenerator_Operations* const make = generator->operations;
    /* The record is an argument like any other: the compiler passes the address of a copy. */
    const JsonVariant count = {.tag = JSON_VARIANT_INT64, .number = 2};
    wchar_t path[1024];
    uint32_t root, lines, item;
    const uint8_t* bytes;
    uint64_t size;

    Check(make->CreateRootObject(generator, &root) == JSON_SUCCESS, "no root");
    make->AddObjectItemInt(generator, (int32_t)root, L"no", 7, &item);
    make->AddObjectItemDouble(generator, (int32_t)root, L"total", 12.5, &item);
    make->AddObjectItemArray(generator, (int32_t)root, L"lines", &lines);
    make->AddArrayItemString(generator, (int32_t)lines, L"tea", &item);
    make->AddArrayItemString(generator, (int32_t)lines, L"\u00E6ble", &item);
    Check(make->AddItemVariant(generator, (int32_t)root, L"count", count, &item) == JSON_SUCCESS,
          "no variant");

    Check(make->GetItemPath(generator, (int32_t)lines, path) == JSON_SUCCESS, "no path");
    Print("path", path);
    /* The bytes belong to the generator. */
    Check(make->GetJsonBytes(generator, &bytes, &size, JSON_ENCODING_UTF8) == JSON_SUCCESS,
          "no bytes");
    printf("built: %.*s\n", (int)size, (const char*)bytes);
    Check(make->SaveToFile(generator, fileName, JSON_ENCODING_UTF8) == JSON_SUCCESS,
          "the order was not saved");
}
//! [build]

/* ---- Reading ---- */

static void Read(IJsonParser* parser, const wchar_t* fileName) {
    const IJsonParser_Operations* const read = parser->operations;
    const char mistake[] = "[1, 2,]";
    const wchar_t* text;
    int32_t number;
    uint64_t offset;

    Check(read->LoadJsonFile(parser, fileName) == JSON_SUCCESS, "the order was not loaded");
    Check(read->GetItemIntByPath(parser, L"/no", &number) == JSON_SUCCESS, "no number");
    printf("number: %d\n", (int)number);
    Check(read->GetItemStringByPath(parser, L"/lines/2", &text) == JSON_SUCCESS, "no line");
    Print("second line", text);
    printf("discount: %s\n", read->ExistsItemByPath(parser, L"/discount") ? "yes" : "no");

    Check(read->LoadJsonBytes(parser, mistake, sizeof mistake - 1) == JSON_PLAIN_FAILURE,
          "accepted");
    read->GetErrorOffset(parser, &offset);
    read->GetErrorMessage(parser, &text);
    printf("byte %d, ", (int)offset);
    Print("mistake", text);
}

/* ---- The host's own objects, through a delegate ---- */

/* What the host does not offer: the package passes the result on. */
static int Refuse0(IJsonPackageDelegate* self, void* object, uint16_t a, uint32_t b, uint32_t c,
                   uint32_t d, uint32_t e, uint8_t f, const wchar_t** text) {
    (void)self, (void)object, (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)text;
    return JSON_WRONG_KIND;
}
static int Refuse1(IJsonPackageDelegate* self, void* object, uint8_t a, uint8_t b, uint8_t c,
                   uint8_t d, uint8_t e, const wchar_t** text) {
    (void)self, (void)object, (void)a, (void)b, (void)c, (void)d, (void)e, (void)text;
    return JSON_WRONG_KIND;
}
static int Refuse2(IJsonPackageDelegate* self, void* object, uint16_t a, uint8_t b, uint8_t c,
                   const wchar_t** text) {
    (void)self, (void)object, (void)a, (void)b, (void)c, (void)text;
    return JSON_WRONG_KIND;
}
static int Refuse3(IJsonPackageDelegate* self, void* object, uint8_t a, uint8_t b,
                   const wchar_t** text) {
    (void)self, (void)object, (void)a, (void)b, (void)text;
    return JSON_WRONG_KIND;
}
static int Refuse5(IJsonPackageDelegate* self, void* object, uint32_t a, const wchar_t** text) {
    (void)self, (void)object, (void)a, (void)text;
    return JSON_WRONG_KIND;
}

//! [delegate]
typedef struct Order {
    int32_t number;
    wchar_t json[64];
} Order;

/* Makes JSON from an order. The text lives in the order, as long as the package needs it. */
static int Export(IJsonPackageDelegate* self, void* object, uint8_t a, const wchar_t** text) {
    Order* const order = object;
    (void)self, (void)a;
    swprintf(order->json, 64, L"{\"no\":%d}", (int)order->number);
    *text = order->json;
    return JSON_SUCCESS;
}

/* Takes JSON into an order. A host that wants its values loads them into a parser. */
static int Import(IJsonPackageDelegate* self, void* object, const wchar_t* text, uint8_t a,
                  uint64_t b, uint16_t c, uint32_t d, uint32_t e) {
    Order* const order = object;
    (void)self, (void)a, (void)b, (void)c, (void)d, (void)e;
    wcsncpy(order->json, text, 63);
    return JSON_SUCCESS;
}

static const IJsonPackageDelegate_Operations kOperations = {
    .DelegateExport0 = Refuse0,
    .DelegateExport1 = Refuse1,
    .DelegateExport2 = Refuse2,
    .DelegateExport3 = Refuse3,
    .DelegateExport4 = Export,
    .DelegateExport5 = Refuse5,
    .DelegateImport = Import,
};
//! [delegate]

static void Keep(IJsonPackage* package) {
    const IJsonPackage_Operations* const keep = package->operations;
    IJsonPackageDelegate delegate = {&kOperations};
    Order sent = {8, L""}, received = {0, L""};
    const wchar_t* text;

    keep->SetDelegate(package, &delegate);
    /* <windows.h> makes LoadStringW of it, which the header offers too. */
    Check(keep->LoadString(package, L"{\"Total\":12.5}") == JSON_SUCCESS,
          "the text was not loaded");
    Check(keep->SetValueFromDelegate4(package, L"Order", &sent, 0) == JSON_SUCCESS,
          "the order was not kept");
    Check(keep->GetValueToDelegate(package, L"order", &received, 0, 0, 0, 0, 0) == JSON_SUCCESS,
          "not found");
    Print("received", received.json);
    printf("export 5: %d\n", keep->SetValueFromDelegate5(package, L"Order", &sent, 0));
    Check(keep->GetText(package, &text) == JSON_SUCCESS, "no text");
    Print("kept", text);
}

/* ---- The library ---- */

typedef void (*Function)(void);

static Function Find(HMODULE library, const char* name) {
    const Function function = (Function)GetProcAddress(library, name);
    Check(function != NULL, name);
    return function;
}

int main(void) {
    const wchar_t* const fileName = L"order.json";
    const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    Check(library != NULL, "Json_Dll.dll was not found");
    IJsonGenerator* const generator =
        ((IJsonGenerator * (*)(void)) Find(library, "CreateJsonGenerator"))();
    IJsonParser* const parser = ((IJsonParser * (*)(void)) Find(library, "CreateJsonParser"))();
    IJsonPackage* const package =
        ((IJsonPackage * (*)(void)) Find(library, "CreateJsonPackageInterface"))();
    Check(generator && parser && package, "no memory");

    Build(generator, fileName);
    Read(parser, fileName);
    Keep(package);

    generator->operations->Release(generator);
    parser->operations->Release(parser);
    package->operations->Release(package);
    DeleteFileW(fileName);
    FreeLibrary(library);
    return 0;
}
