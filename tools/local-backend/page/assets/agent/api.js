// SPDX-License-Identifier: MIT
// Requests to the backend, and its events.

const base = '/agent/api/';
const retryDelay = 2000;

/** Returns the JSON of the response. Throws an Error with the backend's reason. */
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
        // The response is not the backend's, but a proxy's.
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

function formData(texts, files) {
    const data = new FormData();
    // As blobs, because FormData normalizes the line ends of strings.
    for (const [name, text] of Object.entries(texts))
        data.append(name, new Blob([text]));
    for (const file of files)
        data.append('attachments[]', file, file.name);
    return data;
}

export const sendReply = (id, texts, files) =>
    post(ticketPath(id, '/message'), formData(texts, files));

/** Uploads a logo or an agent's picture. Returns its path for messages and its URL. */
export const uploadPicture = (file) => post('pictures', formData({}, [file]));

/**
 * Listens to the backend's events. `connected` is called for each connection: events may have been
 * missed before it.
 */
export function listen(handlers) {
    const {connected, disconnected, ticketChanged, settingsChanged} = handlers;
    const source = new EventSource(`${base}events`);
    source.addEventListener('open', connected);
    source.addEventListener('ticket', (event) => ticketChanged(JSON.parse(event.data)));
    source.addEventListener('settings', settingsChanged);
    source.addEventListener('error', () => {
        disconnected();
        // The browser reconnects by itself, except after an error response.
        if (source.readyState === EventSource.CLOSED)
            setTimeout(() => listen(handlers), retryDelay);
    });
}
