/* A host in C: host FOLDER JOB-TICKET [PAGE-TICKET ...]
 *
 * Converts a job ticket and its pages' tickets. The folder, which must be there, gets the job header and the
 * data lines as they come out of the last conversion, job.pjl and job.data, and the tickets as conversions
 * leave them, 001-ticket.xml and so on.
 */

#include <stdio.h>
#include <stdlib.h>

#include <devicespecific/devicespecific.h>

static int Fail(const char* what, const char* why) {
    fprintf(stderr, "host: %s: %s\n", what, why);
    return 0;
}

/* A ticket fails at a place, the rest as a whole. */
static int FailWith(const char* what, const DsmError* error) {
    if (error->Line > 0)
        fprintf(stderr, "host: %s:%d:%d: %s\n", what, (int)error->Line, (int)error->Column, error->Text);
    else
        fprintf(stderr, "host: %s: %s\n", what, error->Text);
    return 0;
}

/* The bytes are the caller's to free; null after an error. */
static char* ReadFile(const char* file, size_t* length) {
    FILE* stream = fopen(file, "rb");
    char* bytes = NULL;
    long size = -1;
    if (stream != NULL && fseek(stream, 0, SEEK_END) == 0) size = ftell(stream);
    if (size >= 0 && fseek(stream, 0, SEEK_SET) == 0) bytes = malloc((size_t)size + 1);
    if (bytes != NULL && fread(bytes, 1, (size_t)size, stream) != (size_t)size) {
        free(bytes);
        bytes = NULL;
    }
    if (stream != NULL) fclose(stream);
    *length = (size_t)size;
    return bytes;
}

/* A property that isn't there makes no file. */
static int WriteFile(const char* folder, const char* name, const DsmValue* value) {
    char file[4096];
    FILE* stream;
    int written;
    if (value->Type != DSM_TEXT) return 1;
    snprintf(file, sizeof file, "%s/%s", folder, name);
    stream = fopen(file, "wb");
    if (stream == NULL) return Fail(file, "can't be written");
    written = fwrite(value->Text, 1, value->Length, stream) == value->Length;
    if (fclose(stream) != 0 || !written) return Fail(file, "can't be written");
    return 1;
}

/* What the host knows of its printer. A bag of its own, in place of these in memory, would be a DsmBag. */
static int SetProperties(DsmJob* job) {
    const DsmValue series = {DSM_TEXT, 0, "Sample", 6};
    const DsmValue map = {DSM_TEXT, 0, "{}", 2};
    DsmError error;
    if (DsmSetProperty(job, DSM_PIPELINE, "Series", &series, &error) != DSM_OK ||
        DsmSetProperty(job, DSM_DRIVER, "CommandMap_Sample", &map, &error) != DSM_OK)
        return FailWith("properties", &error);
    return 1;
}

static int WriteTicket(const char* folder, int number, DsmTicket* ticket) {
    char name[40];
    DsmValue xml;
    DsmError error;
    snprintf(name, sizeof name, "%03d-ticket.xml", number);
    if (DsmGetTicketXml(ticket, &xml, &error) != DSM_OK) return FailWith(name, &error);
    return WriteFile(folder, name, &xml);
}

/* The result takes the place of the one before. */
static int ConvertTicket(DsmJob* job, const char* file, const char* folder, int number, DsmResult** result) {
    size_t length;
    char* bytes = ReadFile(file, &length);
    DsmTicket* ticket = NULL;
    DsmError error;
    int done;
    if (bytes == NULL) return Fail(file, "can't be read");
    DsmFreeResult(*result);
    *result = NULL;
    done = DsmLoadTicket(bytes, length, &ticket, &error) == DSM_OK &&
           DsmConvert(job, number == 1 ? DSM_JOB_LEVEL : DSM_PAGE_LEVEL, ticket, result, &error) == DSM_OK;
    done = done ? WriteTicket(folder, number, ticket) : FailWith(file, &error);
    DsmFreeTicket(ticket);
    free(bytes);
    return done;
}

static int WriteResult(DsmResult* result, const char* folder) {
    DsmValue pjl, data;
    DsmError error;
    if (DsmGetProperty(result, "PJL", &pjl, &error) != DSM_OK ||
        DsmGetProperty(result, "DATA", &data, &error) != DSM_OK)
        return FailWith("result", &error);
    return WriteFile(folder, "job.pjl", &pjl) && WriteFile(folder, "job.data", &data);
}

int main(int count, char** arguments) {
    DsmJob* job = NULL;
    DsmResult* result = NULL;
    DsmError error;
    int done, at;
    if (count < 3) {
        fprintf(stderr, "usage: host FOLDER JOB-TICKET [PAGE-TICKET ...]\n");
        return 2;
    }
    done = DsmNewJob(&job, &error) == DSM_OK ? SetProperties(job) : FailWith("job", &error);
    for (at = 2; done && at < count; ++at)
        done = ConvertTicket(job, arguments[at], arguments[1], at - 1, &result);
    done = done && WriteResult(result, arguments[1]);
    DsmFreeResult(result);
    DsmFreeJob(job);
    return done ? 0 : 1;
}
