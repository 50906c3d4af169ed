/* Symbol export marker for the public entry points of libzem. */
#ifndef ZEM_EXPORT_H
#define ZEM_EXPORT_H

#if defined(_WIN32)
#  if defined(ZEM_BUILDING)
#    define ZEM_API __declspec(dllexport)
#  else
#    define ZEM_API
#  endif
#elif defined(__GNUC__)
#  define ZEM_API __attribute__((visibility("default")))
#else
#  define ZEM_API
#endif

#ifdef __cplusplus
#  define ZEM_BEGIN_DECLS extern "C" {
#  define ZEM_END_DECLS }
#else
#  define ZEM_BEGIN_DECLS
#  define ZEM_END_DECLS
#endif

#endif /* ZEM_EXPORT_H */
