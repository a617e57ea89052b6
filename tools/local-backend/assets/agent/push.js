// SPDX-License-Identifier: MIT
// A push by hand, begun with what the backend would push for the ticket.
import {byId} from './dom.js';
import {sendPush} from './api.js';

const dialog = byId('push-dialog');
const payload = byId('push-payload');
const kind = byId('push-kind');

let ticket = null;

function unstoredMessage() {
    const timestamp = new Date().toISOString().replace(/\.\d+Z$/u, '+0000');
    return {
        id: `by-hand-${Date.now()}`,
        ticketId: ticket.id,
        sender: {id: 'agent-by-hand', name: 'By hand', type: 'human agent'},
        content: 'A push by hand.',
        isRead: false,
        timestamp,
    };
}

const newestAnswer = () =>
    ticket.messages.findLast((message) => message.sender.type !== 'customer') ?? unstoredMessage();

const payloads = {
    message: () => ({message: newestAnswer()}),
    unstored: () => ({message: unstoredMessage()}),
    ticketPreview: () => ({
        ticketPreview: {
            id: ticket.id, state: ticket.state, lastMessage: ticket.messages.at(-1),
        },
    }),
};

function begin() {
    payload.value = JSON.stringify({source: 'tolvane', ...payloads[kind.value]()}, null, 2);
    byId('push-failure').textContent = '';
}

/** Opens the dialog for a ticket. */
export function openPush(shown) {
    if (!shown)
        return;
    ticket = shown;
    byId('push-target').textContent = ticket.takesPushes
        ? 'The payload goes to the customer’s device as it is.'
        : 'The customer has registered no device yet.';
    begin();
    dialog.showModal();
    kind.focus();
}

async function send(sent) {
    try {
        await sendPush(ticket.id, JSON.parse(payload.value));
        dialog.close();
        sent();
    } catch (error) {
        byId('push-failure').textContent =
            error instanceof SyntaxError ? `No JSON: ${error.message}` : error.message;
    }
}

/** `sent` is called after each push. */
export function startPush(sent) {
    kind.addEventListener('change', begin);
    dialog.addEventListener('submit', (event) => {
        event.preventDefault();
        send(sent);
    });
}
