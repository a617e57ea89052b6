// SPDX-License-Identifier: MIT
// What the page asks of the backend, and hears from it.

const base = '/agent/api/';
const retryDelay = 2000;

/** The JSON of the answer. Throws an Error with the backend's reason. */
async function request(path, options = {}) {
    let response;
    try {
        response = await fetch(base + path, {...options, cache: 'no-store'});
    } catch {
        throw new Error('The backend cannot be reached.');
    }
    const text = await response.text();
    if (response.ok)
        return text ? JSON.parse(text) : null;
    let reason = response.statusText;
    try {
        reason = JSON.parse(text).error ?? reason;
    } catch {
        // An answer of something between us and the backend.
    }
    throw new Error(`${reason} (${response.status})`);
}

const post = (path, body) => request(path, {
    method: 'POST', body, headers: {'X-Tolvane-Agent': '1'},
});
const postJson = (path, value) => post(path, JSON.stringify(value));
const ticketPath = (id, rest = '') => `ticket/${encodeURIComponent(id)}${rest}`;

export const readTickets = () => request('tickets');
export const readTicket = (id) => request(ticketPath(id));
export const changeTicket = (id, change) => postJson(ticketPath(id), change);
export const sendPush = (id, payload) => postJson(ticketPath(id, '/push'), payload);
export const readSettings = () => request('settings');
export const saveBranding = (branding) => postJson('branding', branding);
export const saveSchedules = (schedules) => postJson('schedules', schedules);
export const saveAutomatic = (automatic) => postJson('automatic', {automatic});

function form(texts, files) {
    const made = new FormData();
    // Line ends within a text would be changed on the way, those within a blob are not.
    for (const [name, text] of Object.entries(texts))
        made.append(name, new Blob([text]));
    for (const file of files)
        made.append('attachments[]', file, file.name);
    return made;
}

export const sendAnswer = (id, texts, files) => post(ticketPath(id, '/message'), form(texts, files));

/** Keeps a picture of an agent or a logo; gives its path for messages, and its address. */
export const keepPicture = (file) => post('pictures', form({}, [file]));

/**
 * Listens for as long as the page is there. `connected` is called each time that there may be more
 * to know than was heard.
 */
export function listen({connected, lost, ticket, settings}) {
    const source = new EventSource(`${base}events`);
    source.addEventListener('open', connected);
    source.addEventListener('ticket', (event) => ticket(JSON.parse(event.data)));
    source.addEventListener('settings', settings);
    source.addEventListener('error', () => {
        lost();
        // The browser comes back by itself, unless it was turned away.
        if (source.readyState === EventSource.CLOSED)
            setTimeout(() => listen({connected, lost, ticket, settings}), retryDelay);
    });
}
