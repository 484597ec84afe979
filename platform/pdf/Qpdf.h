// The C++ interface of qpdf, as every source has it from here.
#pragma once

// In C++20, Clang 14 refuses qpdf's header of JSON, where a class has a vector of itself. Nothing
// of that is used here, so the class is declared and its header taken as read.
#ifdef __clang__
#define JSON_HH
class JSON;
#endif

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
