#pragma once

/** @file
 * The device-specific module for hosts in C, and in all languages that can call C.
 *
 *     DsmError error;
 *     DsmJob *job = NULL;
 *     DsmTicket *ticket = NULL;
 *     DsmResult *result = NULL;
 *     DsmValue pjl;
 *     const DsmValue series = {DSM_TEXT, 0, "Sample", 6};
 *
 *     if (DsmNewJob(&job, &error) == DSM_OK &&
 *         DsmSetProperty(job, DSM_PIPELINE, "Series", &series, &error) == DSM_OK &&
 *         DsmLoadTicket(bytes, length, &ticket, &error) == DSM_OK &&
 *         DsmConvert(job, DSM_JOB_LEVEL, ticket, &result, &error) == DSM_OK &&
 *         DsmGetProperty(result, "PJL", &pjl, &error) == DSM_OK)
 *         fwrite(pjl.Text, 1, pjl.Length, printer);
 *     else
 *         fprintf(stderr, "%s\n", error.Text);
 *     DsmFreeResult(result);
 *     DsmFreeTicket(ticket);
 *     DsmFreeJob(job);
 *
 * A job is what lives from the first ticket of a print job to its last: its property bags, its option tables
 * and what one conversion leaves for the next. A print job's tickets are converted one by one with one job:
 * the job ticket first, then the documents' and pages' in their order.
 *
 * @par Errors
 * Functions that can fail give DSM_OK or another status, and say more in `error`, which is the caller's and
 * may be null. It is written by every call, so it belongs to one call and one thread. A call that fails
 * changes nothing but what its description says, leaves every pointer that it should have set null and every
 * value absent, and the next call works. No exception ever leaves a function.
 *
 * @par Texts
 * They are UTF-8 with a length in bytes and may hold zero bytes. All that are given back end with a zero byte
 * as well, which the length doesn't count; a half of a surrogate pair, as only a ticket's settings can bring
 * in, is given as U+FFFD. Texts that are handed in need no zero byte, are copied, and are refused when they
 * are not UTF-8. Names are UTF-8 that ends with a zero byte, and compare exactly. The thread's locale counts
 * for nothing.
 *
 * @par Owners
 * What DsmNew..., DsmLoad... and DsmConvert give is the caller's and goes back to DsmFree..., once, in any
 * order; null does nothing there. A result and a ticket may outlive the job. A text that is given back
 * belongs to the object that it was asked of; the function says how long it lives.
 *
 * @par Threads
 * Any function may be called on any thread, and an object be used on one thread and then on another. Calls
 * with the same job, the same ticket or the same result must not run at the same time, nor calls with jobs
 * whose bags call functions that can't bear it; all others may. DsmConvert may ask the print service for a
 * document's name and wait for it for some seconds. No thread may be cancelled within a call.
 *
 * @par What stays
 * For as long as the first number of the version is the same: names, arguments, numbers and the layout of
 * structs. There may be more functions and more numbers, so take a status that you don't know for a failure,
 * and pass over a type of value that you don't know. DeviceSpecificModule.h says what holds of the module.
 */

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct DsmJob DsmJob;       /**< what lives from a print job's first ticket to its last */
typedef struct DsmTicket DsmTicket; /**< a ticket, which conversions edit */
typedef struct DsmResult DsmResult; /**< the properties behind a conversion */

/** How a call ended. */
/** @{ */
typedef int32_t DsmStatus;
enum {
    DSM_OK = 0,           /**< it did what it says */
    DSM_BAD_ARGUMENT = 1, /**< a null pointer, an unknown name or number, a text that is not UTF-8 */
    DSM_BAD_TICKET = 2,   /**< bytes that are no ticket; Line and Column say where */
    DSM_NO_MEMORY = 3,    /**< Code is 0x8007000E */
    DSM_BAG_FAILED = 4,   /**< a function of the host's bag failed; Code is the number that it gave */
    DSM_CONVERSION_FAILED =
        5, /**< the ticket or its settings can't be converted; Code is 0 or a result code */
};
/** @} */

/** What went wrong. After DSM_OK all is 0, the text empty. */
typedef struct DsmError {
    DsmStatus Status; /**< what the call gave */
    uint32_t Code;    /**< the module's result code, or a bag's; 0 where there is none */
    int32_t Line;     /**< of DSM_BAD_TICKET, from 1; 0 where no place is known */
    int32_t Column;   /**< likewise */
    char Text[240];   /**< why, in UTF-8, ended by a zero byte, cut where it is longer */
} DsmError;

/** Types of values. */
enum {
    DSM_ABSENT = 0,  /**< nothing: there is none, or it is to be removed */
    DSM_NULL = 1,    /**< it is there, but holds nothing */
    DSM_TEXT = 2,    /**< Text and Length */
    DSM_INTEGER = 3, /**< Number, from INT32_MIN to INT32_MAX */
    DSM_USER = 4,    /**< Number, the id of a user, from 0 to UINT32_MAX; "UserSecurityToken" is one */
    DSM_BAG = 5,     /**< the job's driver or queue bag; only ever given back */
    DSM_TABLES = 6,  /**< the job's option tables, to which "DPBMap" refers; only ever given back */
};

/** What a property or a field of an option table holds. */
typedef struct DsmValue {
    int32_t Type;     /**< of those above; the other members count, and are set, only where it names them */
    int64_t Number;   /**< an integer or a user's id */
    const char* Text; /**< may be null when Length is 0 */
    size_t Length;    /**< in bytes */
} DsmValue;

/* ---- Jobs ------------------------------------------------------------------------------------------- */

/** A new job, with empty bags in memory and the device's five option tables. */
DsmStatus DsmNewJob(DsmJob** job, DsmError* error);
/** Ends a job; null does nothing. */
void DsmFreeJob(DsmJob* job);

/** The three bags of a job. */
enum {
    DSM_PIPELINE = 0, /**< what the filters of the pipeline share; conversions read it and write it */
    DSM_DRIVER = 1,   /**< of the printer's driver: texts and integers; read by DSM_JOB_LEVEL alone */
    DSM_QUEUE = 2,    /**< of the printer's queue; likewise */
};

/** Sets a property of a bag in memory, or removes it where the value is DSM_ABSENT. Not while it converts.
 * DSM_BAD_ARGUMENT, beside the usual, for a value that such a bag can't hold and for a bag of the host's own.
 *
 * Properties that conversions read, and a host may set. Each may be absent, but for "EncryptionID" where the
 * settings ask for a copy password: without it that conversion fails.
 *
 *     DSM_PIPELINE  "Series"                text; names the driver property to read
 *                   "UserSecurityToken"     user; who submitted the job
 *                   "PrinterName"           text; the queue to ask for the document's name
 *                   "EncryptionID"          text; chooses the key of the copy password
 *                   "PAPER_SIZE", "CUSTOM_PAPER_SIZE_WIDTH", "CUSTOM_PAPER_SIZE_HEIGHT",
 *                   "PageOrientation", "JobDuplexAllDocumentsContiguously"
 *                                           texts, which conversions write themselves for those to come
 *     DSM_DRIVER    "CommandMap_" + Series  text
 *     DSM_QUEUE     "encryptionPassphrase"  text;  "encryptionPassphrase_Flag"  integer
 *
 * "DriverPropertyBag" and "QueuePropertyBag" of the pipeline are there from the start and refer to the other
 * two bags. Replacing or removing them shows what a job comes to without these bags. DeviceSpecificModule.h
 * has the table of all properties, those that conversions write included.
 */
DsmStatus DsmSetProperty(DsmJob* job, int32_t bag, const char* name, const DsmValue* value, DsmError* error);

/** A bag of the host's own: functions that DsmConvert calls, on its thread, with Context as it is here.
 *
 * They give 1 when they did what they were asked; 0 when they did not, because there is no such property or
 * because they won't; and a negative number to end the conversion with DSM_BAG_FAILED and that number as its
 * Code. A conversion goes on without what is denied, also when the bag takes no "PJL": that is between the
 * bag and its host.
 *
 * Get  writes the property's value to `value`, which is absent at first: null, a text, an integer or a user.
 *      Types that the property can't have count as absent. A text must stay where it is until the next call
 *      of a function of this bag or until DsmConvert returns; one that is not UTF-8 ends the conversion with
 *      DSM_BAD_ARGUMENT. It is not asked for "DriverPropertyBag" and "QueuePropertyBag", nor for names with
 *      zero bytes in them, which count as absent.
 * Set  takes a value or, where `value` is DSM_ABSENT, removes the property; its text lives until Set
 *      returns. A pipeline's bag must give back later what it took. Null for a bag that takes nothing, as
 *      the driver's and the queue's, of which nobody asks it.
 *
 * The functions must not use the job, nor the ticket that is converted, nor end the thread, nor leave by
 * longjmp. A C++ exception that leaves one ends the conversion: std::bad_alloc with DSM_NO_MEMORY, others
 * with DSM_CONVERSION_FAILED and what they say.
 */
typedef struct DsmBag {
    void* Context;                                                          /**< the host's own */
    int32_t (*Get)(void* context, const char* name, DsmValue* value);       /**< reads a property */
    int32_t (*Set)(void* context, const char* name, const DsmValue* value); /**< writes one; may be null */
} DsmBag;

/** Puts a bag of the host's own in place of one in memory, with all that was set there. The functions are
 * copied; Context stays the host's and must be fit for use until the job is freed. */
DsmStatus DsmUseBag(DsmJob* job, int32_t bag, const DsmBag* functions, DsmError* error);

/* ---- Option tables ---------------------------------------------------------------------------------- */

/** Lets conversions use the tables of these names alone; null for none at all, and not even a page's data
 * lines then. A new job uses all five. Rows stay as they are, used or not.
 *
 * Each job has copies of its own of the device's five option tables, "PageMediaSize", "PageMediaType",
 * "PageInputBin", "SimplexPageMode" and "DuplexPageMode", and converts by these. Rows may be changed, but not
 * added or taken away. They live as long as the job, to which alone they belong. */
DsmStatus DsmUseTables(DsmJob* job, const char* const* names, size_t count, DsmError* error);

/** The texts of a row. */
enum {
    DSM_KEYWORD = 1,                 /**< the row's key in a ticket */
    DSM_PAIRED_KEYWORD = 2,          /**< media sizes: the size that goes with it under the layout "Bl4in1" */
    DSM_TICKET_FRAGMENT = 3,         /**< XML that selects the option; custom sizes: two %s */
    DSM_JOB_COMMAND = 4,             /**< text of the job header; custom sizes: two %s */
    DSM_FOUR_IN_ONE_JOB_COMMAND = 5, /**< media sizes: sent instead under "Bl4in1" */
    DSM_NAMESPACE_PREFIX = 6,        /**< media sizes: the keyword's prefix in a ticket */
    DSM_POSTSCRIPT_COMMAND = 7,      /**< for the host alone */
    DSM_DATA_COMMAND = 8,            /**< the data line, with its CR LF */
    DSM_EXTRA_TEXT = 9,              /**< for the host alone */
    DSM_DEVICE_NAME = 10,            /**< the device's word for it in commands for single pages */
};

/** A text of a row, counted from 0. Behind the last row the value is absent. The text lives until the next
 * call with this job. */
DsmStatus DsmGetField(DsmJob* job, const char* table, size_t row, int32_t field, DsmValue* value,
                      DsmError* error);

/** Replaces it by another text. DSM_BAD_ARGUMENT, beside the usual, behind the last row. */
DsmStatus DsmSetField(DsmJob* job, const char* table, size_t row, int32_t field, const DsmValue* value,
                      DsmError* error);

/* ---- Tickets ---------------------------------------------------------------------------------------- */

/** Loads a Print Ticket from a file's bytes, in the encoding that they declare or that a byte order mark
 * shows, else UTF-8. */
DsmStatus DsmLoadTicket(const char* bytes, size_t length, DsmTicket** ticket, DsmError* error);
/** Frees a ticket; null does nothing. */
void DsmFreeTicket(DsmTicket* ticket);

/** The ticket as XML that declares no encoding, as conversions left it. The text lives until the next call
 * with this ticket. */
DsmStatus DsmGetTicketXml(DsmTicket* ticket, DsmValue* xml, DsmError* error);

/* ---- Conversions ------------------------------------------------------------------------------------ */

/** What a ticket is the ticket of. */
enum {
    DSM_PAGE_LEVEL = 0,     /**< as is any number but the two below */
    DSM_DOCUMENT_LEVEL = 1, /**< a document */
    DSM_JOB_LEVEL = 2,      /**< the whole job */
};

/** Converts a ticket, which is edited in place, by the job's settings and what its conversions so far have
 * left. A job ticket makes "PJL" anew, begins "DATA" and sets other properties; a document's ticket is given
 * the size to print on; a page's adds its lines to "DATA", which so has all lines of the job. `result` may be
 * null where nobody asks for it.
 *
 * When it fails, the job is as it was before, the properties in memory included, and the ticket holds the
 * edits made by then: convert one loaded anew. What a bag of the host's own has been given stays there;
 * use neither "PJL" nor "DATA" of it.
 */
DsmStatus DsmConvert(DsmJob* job, int32_t level, DsmTicket* ticket, DsmResult** result, DsmError* error);

/** A property by its name; absent where there is none.
 *
 * A result holds the pipeline's properties as they are after a conversion: those that were set and those that
 * the job's conversions have written. Where the pipeline's bag is the host's own: those alone that they have
 * written, whatever the bag has made of them, and the two bags. A result stays as it is whatever becomes of
 * the job. Its texts live as long as it does. */
DsmStatus DsmGetProperty(DsmResult* result, const char* name, DsmValue* value, DsmError* error);
/** One property after the other, from 0 on, in the order of their names. Behind the last the value is absent,
 * the name null. */
DsmStatus DsmGetPropertyAt(DsmResult* result, size_t index, const char** name, DsmValue* value,
                           DsmError* error);
/** Frees a result; null does nothing. */
void DsmFreeResult(DsmResult* result);

/* ---- Texts of people -------------------------------------------------------------------------------- */

/** Makes a text harmless that goes into the job header, and gives its new length, which is not greater. The
 * header takes the user's name, the document's name and the setting "HoldKey" as they are, and a line end in
 * one of them would begin a command. Control characters become blanks, the double quote an apostrophe, "%s"
 * "%S", in place; the text needs no zero byte at its end and gets none. PjlText.h says where each of these
 * texts comes from. Null is for a length of 0. */
size_t DsmCleanForPjl(char* text, size_t length);

#ifdef __cplusplus
}
#endif
