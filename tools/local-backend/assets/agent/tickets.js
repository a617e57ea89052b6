// SPDX-License-Identifier: MIT
// The list of all customers' tickets, newest activity first.
import {agoText, avatar, byId, customerName, element, milliseconds} from './dom.js';

const longestPreview = 200;
const senderNames = {'customer': '', 'ai agent': 'AI: ', 'human agent': 'Agent: '};
const assigneeNames = {'ai agent': 'AI', 'human agent': 'Human'};

const list = byId('tickets');
const search = byId('search');
const filter = byId('filter');

/** Rows by the ids of their tickets, in the order of the list. */
const rows = new Map();
let chosen = null;
let open = () => {};

const lastMessage = (ticket) => ticket.messages.at(-1);
const isWaiting = (ticket) =>
    ticket.state === 'open' && lastMessage(ticket).sender.type === 'customer';

function byActivity(left, right) {
    const [one, other] = [lastMessage(left.ticket), lastMessage(right.ticket)];
    return milliseconds(other.timestamp) - milliseconds(one.timestamp)
        || (one.id < other.id ? 1 : -1);
}

function previewOf(message) {
    const images = message.attachments?.length ?? 0;
    const text = message.content.slice(0, longestPreview);
    return senderNames[message.sender.type] + (text || (images === 1 ? 'Image' : `${images} images`));
}

function badge(text, kind) {
    return element('span', {className: 'badge', 'data-kind': kind}, text);
}

function fill(row, ticket) {
    const message = lastMessage(ticket);
    const name = customerName(ticket);
    row.ticket = ticket;
    row.dataset.state = ticket.state;
    row.dataset.waiting = isWaiting(ticket);
    row.replaceChildren(
        avatar(name),
        element('span', {className: 'name', dir: 'auto'}, name),
        element('time', {dateTime: message.timestamp}, agoText(message.timestamp)),
        element('span', {className: 'preview', dir: 'auto'}, previewOf(message)),
        element('span', {className: 'badges'},
            isWaiting(ticket) ? badge('Waiting', 'waiting') : null,
            ticket.state === 'closed' ? badge('Closed', 'closed') : null,
            badge(assigneeNames[ticket.assignee], ticket.assignee),
            ticket.automatic ? null : badge('By hand', 'by-hand')),
    );
    row.hidden = !isShown(ticket);
}

const filters = {
    all: () => true,
    waiting: isWaiting,
    open: (ticket) => ticket.state === 'open',
    closed: (ticket) => ticket.state === 'closed',
};

function isShown(ticket) {
    const wanted = search.value.trim().toLowerCase();
    const text = `${customerName(ticket)} ${ticket.id} ${previewOf(lastMessage(ticket))}`;
    return filters[filter.value](ticket) && text.toLowerCase().includes(wanted);
}

function makeRow(ticket) {
    const row = element('li', {
        role: 'option', tabIndex: -1, 'data-ticket-id': ticket.id, 'aria-selected': 'false',
    });
    fill(row, ticket);
    rows.set(ticket.id, row);
    return row;
}

const shownRows = () => [...list.children].filter((row) => !row.hidden);

// One row can be reached by Tab; the arrow keys go on from there.
function makeReachable(row) {
    for (const other of list.querySelectorAll('[tabindex="0"]'))
        other.tabIndex = -1;
    if (row)
        row.tabIndex = 0;
}

function settle() {
    const shown = shownRows();
    byId('no-tickets').hidden = shown.length > 0;
    if (!shown.some((row) => row.tabIndex === 0))
        makeReachable(shown.find((row) => row.dataset.ticketId === chosen) ?? shown[0]);
    const waiting = [...rows.values()].filter((row) => isWaiting(row.ticket)).length;
    document.title = waiting > 0 ? `(${waiting}) Tolvane agents` : 'Tolvane agents';
}

// A row that is moved loses the focus otherwise.
function keepingFocus(change) {
    const focused = list.contains(document.activeElement) ? document.activeElement : null;
    change();
    if (focused?.isConnected && focused !== document.activeElement)
        focused.focus({preventScroll: true});
}

export function replaceTickets(tickets) {
    keepingFocus(() => {
        const wanted = tickets.map((ticket) => {
            const row = rows.get(ticket.id);
            if (!row)
                return makeRow(ticket);
            fill(row, ticket);
            return row;
        });
        list.replaceChildren(...wanted.sort(byActivity));
    });
    settle();
}

export function updateTicket(ticket) {
    keepingFocus(() => {
        const row = rows.get(ticket.id) ?? makeRow(ticket);
        fill(row, ticket);
        const next = [...list.children].find((other) => other !== row && byActivity(row, other) < 0);
        if (!row.isConnected || row.nextElementSibling !== (next ?? null))
            list.insertBefore(row, next ?? null);
    });
    settle();
}

/** Marks the ticket whose conversation is shown, or none. */
export function chooseTicket(id) {
    rows.get(chosen)?.setAttribute('aria-selected', 'false');
    chosen = id;
    const row = rows.get(id);
    row?.setAttribute('aria-selected', 'true');
    if (row)
        makeReachable(row);
}

export function focusTickets() {
    (list.querySelector('[tabindex="0"]') ?? search).focus();
}

const steps = {
    ArrowDown: (at) => at + 1,
    ArrowUp: (at) => Math.max(at - 1, 0),
    PageDown: (at) => at + 8,
    PageUp: (at) => Math.max(at - 8, 0),
    Home: () => 0,
    End: () => Infinity,
};

function handleKey(event) {
    const row = event.target.closest('[data-ticket-id]');
    if (!row || event.ctrlKey || event.altKey || event.metaKey)
        return;
    if (event.key === 'Enter' || event.key === ' ') {
        event.preventDefault();
        open(row.dataset.ticketId);
    } else if (steps[event.key]) {
        event.preventDefault();
        const shown = shownRows();
        const at = Math.min(steps[event.key](shown.indexOf(row)), shown.length - 1);
        makeReachable(shown[at]);
        shown[at].focus();
    }
}

function refilter() {
    for (const row of rows.values())
        row.hidden = !isShown(row.ticket);
    if (list.querySelector('[tabindex="0"]')?.hidden)
        makeReachable(null);
    settle();
}

function refreshTimes() {
    for (const row of rows.values())
        row.querySelector('time').textContent = agoText(lastMessage(row.ticket).timestamp);
}

/** `opened` is called with the id of a ticket that is to be shown. */
export function startTickets(opened) {
    open = opened;
    list.addEventListener('keydown', handleKey);
    list.addEventListener('click', (event) => {
        const row = event.target.closest('[data-ticket-id]');
        if (row)
            open(row.dataset.ticketId);
    });
    search.addEventListener('input', refilter);
    filter.addEventListener('change', refilter);
    search.addEventListener('keydown', (event) => {
        if (event.key === 'ArrowDown' || event.key === 'Enter') {
            event.preventDefault();
            focusTickets();
        }
    });
    setInterval(refreshTimes, 30_000);
}
