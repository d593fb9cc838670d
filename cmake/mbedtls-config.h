// The parts of Mbed TLS that are linked in: SHA-256, and what reads key files. It stands for the library's own config.h.
#define MBEDTLS_SHA256_C
#define MBEDTLS_PEM_PARSE_C
#define MBEDTLS_BASE64_C
#define MBEDTLS_ASN1_PARSE_C
