/**
 * Quilon's desk: documents printed exactly once.
 *
 * One JSON document goes in, one JSON verdict comes out, both UTF-8. The caller
 * gives each document an id of its own; printing the same id again prints
 * nothing and gives the same verdict. What is asked of the printer is written
 * into a journal first, so that neither a program that is killed nor a power
 * cut leaves anybody guessing:
 *
 *     char* answer = NULL;
 *     QuilDesk* desk = quil_desk_open(
 *         "{\"printer\": {\"tcp\": {\"address\": \"10.0.0.7\","
 *         " \"port\": 6001}}, \"journal\": \"receipts.journal\"}",
 *         &answer);
 *     if (desk != NULL) {
 *       char* verdict = quil_desk_print(
 *           desk,
 *           "{\"id\": \"2024-17\", \"kind\": \"receipt\", \"lines\":"
 *           " [{\"name\": \"Chleb\", \"quantity\": \"2\", \"price\": \"6.49\","
 *           " \"rate\": \"C\"}]}");
 *       puts(verdict);
 *       quil_desk_free(verdict);
 *       quil_desk_close(desk);
 *     }
 *     quil_desk_free(answer);
 *
 * Verdicts. "verdict" is "booked": the printer's books hold the document;
 * "not_booked": they do not, and will not; or "needs_person": nobody can tell
 * without looking at the paper, or not yet. "final" says whether asking again
 * can bring anything else. desk/README.md describes documents, verdicts and
 * settings; desk/schema/ holds their JSON Schemas.
 *
 * Time. Every call returns within the time that the settings give it
 * ("limits"), whatever the printer does.
 *
 * Threads. The driver drives one printer a process, so a process has one desk
 * at a time. A call on a desk that is busy in another thread does nothing and
 * says so. The desk uses the driver's functions by itself: nobody else in the
 * process may use them while it is open.
 *
 * A journal belongs to one program at a time, and a printer to one journal:
 * what others print on the printer meanwhile cannot be told apart from the
 * desk's own documents.
 *
 * No function lets an exception out. Texts that are given may be null or no
 * JSON: the answer says so. The texts that are returned are the caller's, to be
 * freed by quil_desk_free; null is returned only when memory is exhausted.
 */
#ifndef QUILON_DESK_H_
#define QUILON_DESK_H_

#if defined(_WIN32) && defined(QUILON_DESK_BUILD)
#define QUILON_DESK_API __declspec(dllexport)
#elif defined(_WIN32)
#define QUILON_DESK_API __declspec(dllimport)
#elif defined(__GNUC__)
#define QUILON_DESK_API __attribute__((visibility("default")))
#else
#define QUILON_DESK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** A printer with its journal. */
typedef struct QuilDesk QuilDesk;

/**
 * Opens the journal and settles what an earlier program left unfinished, as far
 * as the printer answers now.
 *
 * @param settings JSON: where the printer is, the journal's file, and, when
 *                 they are not the usual ones, profile and limits.
 * @param answer   Gets a JSON text: what is pending, or why there is no desk.
 *                 Null: nobody wants to know.
 * @return The desk; null when the settings make no sense, when the journal
 *         cannot be used, when another program has it, or when this process has
 *         a desk already.
 */
QUILON_DESK_API QuilDesk* quil_desk_open(const char* settings, char** answer);

/**
 * Prints a document, once. Nothing is sent before every field was found good
 * and the document stands in the journal.
 *
 * @param document JSON, with "id" and "kind".
 * @return The verdict.
 */
QUILON_DESK_API char* quil_desk_print(QuilDesk* desk, const char* document);

/**
 * Asks the printer how it is; changes nothing.
 *
 * @return JSON: whether it answers, is online, has paper, is in error, has a
 *         document open; its totals; how many entries of the journal are
 *         pending.
 */
QUILON_DESK_API char* quil_desk_status(QuilDesk* desk);

/**
 * Settles what can be settled, and tells what is left.
 *
 * @return JSON: "pending", a list of ids, each with its document and what is
 *         known of it.
 */
QUILON_DESK_API char* quil_desk_pending(QuilDesk* desk);

/**
 * Takes a person's word for a pending document, who has looked at the paper.
 *
 * @param resolution JSON: {"id": "...", "verdict": "booked" or "not_booked",
 *                   "by": "who", "note": "..."}.
 * @return The verdict as it stands from now on.
 */
QUILON_DESK_API char* quil_desk_resolve(QuilDesk* desk, const char* resolution);

/**
 * Learns which of the printer's numbers count documents. While it learns, all
 * numeric answers are read before and after each document that is printed
 * anyway.
 *
 * @param order JSON: {"learn": true} begins anew, {"learn": false} ends; null
 *              or {}: only tells.
 * @return JSON: how many documents of each kind were seen, and which fields
 *         grew by one with each of them, in the form that a profile wants.
 */
QUILON_DESK_API char* quil_desk_learn(QuilDesk* desk, const char* order);

/**
 * Closes the connection and the journal. Not while another thread is in a call.
 *
 * @param desk Null: nothing happens.
 */
QUILON_DESK_API void quil_desk_close(QuilDesk* desk);

/**
 * Frees a text that a function above returned.
 *
 * @param text Null: nothing happens.
 */
QUILON_DESK_API void quil_desk_free(char* text);

#ifdef __cplusplus
}
#endif

#endif /* QUILON_DESK_H_ */
